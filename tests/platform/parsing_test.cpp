#include "platform/desktop/commandline.h"
#include "platform/desktop/shortcutfile.h"

#include <gmock/gmock.h>

TEST(CommandLine, IsSplitAsWindowsDoes)
{
    const QList<QPair<const char *, QStringList>> cases = {
        {"", {}},
        {" \t ", {}},
        {"a  b\tc ", {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}},
        {"\"a b\" c", {QStringLiteral("a b"), QStringLiteral("c")}},
        {"\"\" x", {QString(), QStringLiteral("x")}},
        {"a\"b c\"d", {QStringLiteral("ab cd")}},
        {R"(a\b "c\")", {QStringLiteral(R"(a\b)"), QStringLiteral("c\"")}},
        {R"(a\\\b d"e f"g h)", {QStringLiteral(R"(a\\\b)"), QStringLiteral("de fg"), QStringLiteral("h")}},
        {R"(a\\\"b c)", {QStringLiteral(R"(a\"b)"), QStringLiteral("c")}},
        {R"(a\\"b c" d)", {QStringLiteral(R"(a\b c)"), QStringLiteral("d")}},
        {R"("""quoted""" x)", {QStringLiteral("\"quoted\""), QStringLiteral("x")}},
        {R"(say """one two""")", {QStringLiteral("say"), QStringLiteral("\"one"), QStringLiteral("two\"")}},
        {"\"open end", {QStringLiteral("open end")}},
    };
    for (const auto &[parameters, expected] : cases)
        EXPECT_EQ(platform::splitParameters(QLatin1String(parameters)), expected) << parameters;
}

TEST(Shortcut, GivesTargetAndParameters)
{
    struct Case
    {
        QByteArray content;
        const char *file;
        const char *parameters;
    };
    const Case cases[] = {
        {"17#\\Windows\\calc.exe", "\\Windows\\calc.exe", ""},
        {"; comment\r\n;#\r\n9#\"\\Program Files\\a.exe\" -x \"y z\"\r\n1#other", "\\Program Files\\a.exe",
         "-x \"y z\""},
        {"9#\\a.exe -x?\\Windows\\icons.dll,-101", "\\a.exe", "-x"},
        {"9#\"\\a b.exe\"?:doctype", "\\a b.exe", ""},
        {"5#\"\\open end", "\\open end", ""},
        {"5#\xC3\xA4.exe", "\xC3\xA4.exe", ""},
    };
    for (const Case &c : cases) {
        const auto target = platform::parseShortcut(c.content);
        ASSERT_TRUE(target) << c.content.constData();
        EXPECT_EQ(target->file, QString::fromUtf8(c.file)) << c.content.constData();
        EXPECT_EQ(target->parameters, QString::fromUtf8(c.parameters)) << c.content.constData();
    }
    for (const QByteArray &content :
         {QByteArray(), QByteArray("no mark"), QByteArray("3#"), QByteArray("3#\"\""), QByteArray("3#?icon"),
          QByteArray(";#x\n;"), QByteArray(100, '\0')})
        EXPECT_FALSE(platform::parseShortcut(content)) << content.constData();
}
