#include "support/holmsteps.h"

#include <QtCore/QFile>

using testing::HasSubstr;

TEST(RegCommand, ReadsAndWritesValues)
{
    const HolmProcess holm;
    expectSteps(
        holm,
        {{R"(reg|get|HKCU\Software\Widgets\Greeting)", 0, "Hello\n"},
         {R"(reg|set|hkcu\software\widgets\greeting|Grüße 😀)"},
         {R"(reg|get|HKEY_CURRENT_USER\Software\Widgets\Greeting)", 0, "Grüße 😀\n"},
         {R"(reg|set|HKUS\New\Deep\|)"},
         {R"(reg|get|HKUS\New\Deep\)", 0, "\n"},
         {R"(reg|set|HKLM\-x|--|--dword)"},
         {R"(reg|get|HKLM\-x)", 0, "--dword\n"},
         {R"(reg|set|--dword|HKLM\n|-2147483648)"},
         {R"(reg|get|HKLM\n)", 0, "2147483648\n"},
         {R"(reg|set|HKLM\n|0xFfffFFff|--dword)"},
         {R"(reg|get|HKLM\n)", 0, "4294967295\n"},
         {R"(reg|set|--dword|HKLM\n|4294967296)", 2, "", "holm: \"4294967296\" is no number"},
         {R"(reg|set|--dword|HKLM\n|-2147483649)", 2, "", "holm: \"-2147483649\" is no number"},
         {R"(reg|set|--dword|HKLM\n|0x-1)", 2, "", "holm: \"0x-1\" is no number"},
         {R"(reg|set|HKLM\a\\b\n|x)", 1, "", R"(holm: HKEY_LOCAL_MACHINE\a\\b: a key's name is empty)"},
         {R"(reg|get|HKLM\a\n)", 1, "", "holm: HKEY_LOCAL_MACHINE\\a: there is no such key\n"},
         {R"(reg|get|HKLM\m)", 1, "", "holm: HKEY_LOCAL_MACHINE: the key has no value \"m\"\n"},
         {R"(reg|delete|HKLM\n)"},
         {R"(reg|delete|HKLM\n)", 1, "", "holm: HKEY_LOCAL_MACHINE: the key has no value \"n\"\n"},
         {R"(reg|delete|HKUS\New)", 1, "", "holm: HKEY_USERS\\New: this is a key; --key deletes it"},
         {R"(reg|delete|--key|HKUS\New)"},
         {R"(reg|delete|--key|HKUS\New)", 1, "", "holm: HKEY_USERS\\New: there is no such key\n"},
         {R"(reg|delete|--key|HKUS)", 1, "", "holm: HKEY_USERS: a root key cannot be deleted\n"},
         {R"(reg|list|HKUS)"},
         {R"(reg|get|HKLM)", 2, "", "holm: \"HKLM\" names no value"},
         {R"(reg|list|HKU)", 2, "", "holm: \"HKU\" does not begin with a root key"},
         {R"(reg|get|HKLM\x|y)", 2, "", "holm: get takes PATH; see holm reg --help\n"},
         {R"(reg|--key|list|HKLM)", 2, "", "holm: --key does not go with list; see holm reg --help\n"},
         {R"(reg|--nonsense)", 2, "", "holm: unknown option 'nonsense'; see holm reg --help\n"},
         {R"(reg)", 2, "", "holm: no action given; see holm reg --help\n"},
         {R"(reg|--device|/proc/none|list|HKCU)", 1, "",
          "holm: /proc/none: the device folder cannot be made\n"}});
    EXPECT_THAT(holm.command({QStringLiteral("reg"), QStringLiteral("--help")}).output.toStdString(),
                HasSubstr("holm reg import"));
}

TEST(RegCommand, TakesInAllOfAFileOrNothing)
{
    const HolmProcess holm;
    const QByteArray header = "Windows Registry Editor Version 5.00\n";
    holm.write(
        QStringLiteral("good.reg"),
        header
            + "[HKEY_USERS\\K\\Sub]\n[HKEY_USERS\\K]\n\"t\"=\"old\"\n\"t\"=hex(1):41,00,0a,00,1b,00,00,"
              "d8,58\n@=hex:01,aB\n\"d\"=hex(4):01\n\"m\"=hex(7):\n\"n\tx\"=hex(c):00\n"
              "\"gone\"=\"x\"\n\"GONE\"=-\n\"never\"=-\n[-HKEY_USERS\\Never]\n[-HKCU\\Software]\n");
    holm.write(QStringLiteral("bad.reg"), header + "[HKEY_USERS\\Bad]\n[-HKEY_USERS\\K]\n\"x\"=\n");
    expectSteps(holm,
                {{"reg|import|good.reg"},
                 {R"(reg|list|hkus\k)", 0,
                  "HKEY_USERS\\K\\Sub\n"
                  "    (Default)    REG_BINARY    01 ab\n"
                  "    d    REG_DWORD    01\n"
                  "    m    REG_MULTI_SZ    \n"
                  "    n\\tx    12    00\n"
                  "    t    REG_SZ    A\\n\\u001b\\ud800\n"},
                 {R"(reg|list|HKCU)", 0, "HKEY_CURRENT_USER\\ControlPanel\n"},
                 {"reg|import|bad.reg", 1, "", "bad.reg:4: a value needs the line of a key"},
                 {R"(reg|list|HKUS)", 0, "HKEY_USERS\\K\n"},
                 {"reg|import|missing.reg", 1, "", "holm: missing.reg: the file cannot be read: "},
                 {"reg|import|device", 1, "", "holm: device: the file cannot be read: "}});
}

TEST(RegCommand, CarriesAKeyToAnotherDevice)
{
    const HolmProcess holm;
    holm.write(
        QStringLiteral("a.reg"),
        "Windows Registry Editor Version 5.00\n[HKEY_USERS\\K\\\xC3\xA4]\n\"\r\n\"=hex:0a,0d,0a,00,1a\n");
    expectSteps(holm, {{"reg|import|a.reg"}});
    for (const char *option : {"", "|--utf16"}) {
        const QStringList exporting =
            QString::fromLatin1("reg|export|hkus\\k%1").arg(QLatin1String(option)).split(QLatin1Char('|'));
        const auto bytesOf = [&](const char *device) {
            const auto process = holm.prepareCommand(
                exporting + QStringList{QStringLiteral("--device"), QLatin1String(device)});
            process->start();
            EXPECT_TRUE(process->waitForFinished());
            return process->readAllStandardOutput();
        };
        const QByteArray bytes = bytesOf("device");
        EXPECT_THAT(bytes.toStdString(), testing::StartsWith(*option == '\0' ? "Windows" : "\xFF\xFEW"));
        holm.write(QStringLiteral("b.reg"), bytes);
        expectSteps(
            holm,
            {{"reg|import|--device|other|b.reg"}, {"reg|list|HKUS|--device|other", 0, "HKEY_USERS\\K\n"}});
        EXPECT_EQ(bytesOf("other"), bytes);
    }
}
