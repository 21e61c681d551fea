#include "platform/desktop/regfile.h"

#include "platform/desktop/registrydata.h"
#include "support/registryedits.h"

#include <gmock/gmock.h>

using platform::RegFileEncoding;
using platform::RegistryEdit;
using platform::RegistryRoot;
using platform::RegistryValue;
using Action = platform::RegistryEdit::Action;

namespace {

const QByteArray header = "Windows Registry Editor Version 5.00\n";
const QByteArray inKey = header + "[HKEY_CURRENT_USER\\A]\n";

QByteArray toUtf16(const QString &text)
{
    const QString withMark = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char *>(withMark.utf16()), withMark.size() * 2);
}

// As the registry editor itself writes it, in UTF-16 and with Windows' line ends.
const char16_t sample[] =
    u"Windows Registry Editor Version 5.00\r\n\r\n"
    "[HKEY_CURRENT_USER\\Software\\Größe]\r\n"
    "@=\"default\"\r\n"
    "\"Path\"=\"C:\\\\Windows \\\"x\\\"\"\r\n"
    "\"Wide\"=\"\U0001F600\"\r\n"
    "\"Number\"=dword:fffffffe\r\n"
    "\"Binary\"=hex:00,01,02,03,04,05,06,07,08,09,0a,0b,0c,0d,0e,0f,10,11,12,13,14,15,\\\r\n"
    "  16,17,18\r\n"
    "\"Expand\"=hex(2):25,00,00,00\r\n"
    "\"Big\"=hex(b):01,00,00,00,00,00,00,00\r\n"
    "\"Lines\"=hex(1):61,00,0a,00,62,00,00,00\r\n"
    "\"Old\"=-\r\n\r\n"
    "[-HKEY_LOCAL_MACHINE\\Software\\Gone]\r\n";

// The same by hand.
const char sampleByHand[] = "\xEF\xBB\xBFWindows Registry Editor Version 5.00 \n"
                            "; a comment\n"
                            " [hkcu\\Software\\Gr\xC3\xB6\xC3\x9F\x65]\t\n"
                            "@ = \"default\"\n\n"
                            "\"Path\"= \"C:\\\\Windows \\\"x\\\"\" \r\n"
                            "  ; another\n"
                            "\t\"Wide\"=\"\xF0\x9F\x98\x80\"\n"
                            "\"Number\"=DWORD:FFFFFFFE ; behind\n"
                            "\"Binary\"=hex: 0,1,2,3 , 4,5,6,7,8,9,a,B,C,D,E,F,\\ \t\n"
                            "10,11,12,13,14\\\n"
                            ",15,16,17,\\\n"
                            "\t18;behind\n"
                            "\"Expand\"=hex(00000002):25,00,00,00\n"
                            "\"Big\"=hex(B):01,00,00,00,00,00,00,00\n"
                            "\"Lines\"=\"a\nb\"\n"
                            "\"Old\"= -\n"
                            "[-HKLM\\Software\\Gone]";

} // namespace

TEST(RegFile, IsReadAndWrittenAsTheRegistryEditorDoes)
{
    const QByteArray bytes = toUtf16(QString::fromUtf16(sample));
    const auto content = platform::parseRegFile(bytes);
    ASSERT_EQ(content.error, QString());
    EXPECT_EQ(toRegFile(content.edits, RegFileEncoding::Utf16), bytes);

    ASSERT_EQ(content.edits.size(), 11);
    const QString key = QStringLiteral("Software\\Gr\u00F6\u00DFe");
    const RegistryEdit number{Action::SetValue,
                              {RegistryRoot::CurrentUser, key},
                              platform::numberValue(QStringLiteral("Number"), 0xFFFFFFFE)};
    EXPECT_TRUE(content.edits.at(4) == number);
    EXPECT_EQ(content.edits.at(1).value.data, QByteArray("d\0e\0f\0a\0u\0l\0t\0\0\0", 16));
    EXPECT_EQ(content.edits.at(2).value.data.size(), 2 * 15);

    QByteArray bigEndian = bytes;
    for (int i = 0; i < bytes.size(); ++i)
        bigEndian[i] = bytes.at(i ^ 1);
    for (const QByteArray &other : {QByteArray(sampleByHand), bigEndian}) {
        const auto same = platform::parseRegFile(other);
        EXPECT_EQ(same.error, QString()) << "in line " << same.errorLine;
        EXPECT_TRUE(same.edits == content.edits);
    }
}

TEST(RegFile, TellsWhatIsWrongAndWhere)
{
    struct Case
    {
        QByteArray bytes;
        int line;
        const char *word;
    };
    const QByteArray longName(256, 'n');
    const Case cases[] = {
        {"", 1, "first line"},
        {"REGEDIT4\n", 1, "first line"},
        {"\n" + header, 1, "first line"},
        {header.chopped(1) + "1\n", 1, "behind the end"},
        {header + "\"a\"=\"b\"\n", 2, "key"},
        {header + "[-HKEY_CURRENT_USER\\A]\n@=\"b\"\n", 3, "key"},
        {header + "[HKEY_CURRENT_USER\\A\n]", 2, "\"]\""},
        {header + "[HKEY_CURRENT_USER\\A] x]y", 2, "behind the end"},
        {header + "[HKEY_NOWHERE\\A]", 2, "root key"},
        {header + "[-]", 2, "root key"},
        {header + "[-HKEY_CURRENT_USER]", 2, "cannot be removed"},
        {header + "[HKEY_CURRENT_USER\\A\\]", 2, "backslash"},
        {header + "[HKEY_CURRENT_USER\\A\\\\B]", 2, "empty"},
        {header + "[HKEY_CURRENT_USER\\A\tB]", 2, "control"},
        {header + "[HKEY_CURRENT_USER\\" + longName + "]", 2, "255"},
        {header + "[HKEY_CURRENT_USER" + QByteArray("\\A").repeated(65) + "]", 2, "64"},
        {inKey + "# comment", 3, "comment after ;"},
        {inKey + "\"a\"", 3, "\"=\""},
        {inKey + "\"a\"=b", 3, "a value is"},
        {inKey + "\"a\"=\"C:\\Windows\"", 3, "backslash"},
        {inKey + "\"a\"=\"b\n\nc\\", 5, "backslash"},
        {inKey + "\"a\"=\"one\n\ntwo\n", 3, "no end"},
        {inKey + "\"a\nb\"=\"c\nd\" e", 5, "behind the end"},
        {inKey + QByteArray("\"a\0b\"=-", 8), 3, "null"},
        {inKey + '"' + QByteArray(16384, 'n') + "\"=-", 3, "16383"},
        {inKey + "@=dword:", 3, "dword"},
        {inKey + "@=dword:123456789", 3, "dword"},
        {inKey + "@=dword:1g", 3, "behind the end"},
        {inKey + "@=hex:0,", 3, "missing"},
        {inKey + "@=hex:0 1", 3, "commas"},
        {inKey + "@=hex:100", 3, "1 or 2"},
        {inKey + "@=hex:0,\\ x\n1", 3, "behind the backslash"},
        {inKey + "@=hex:0,\\\n1,\\\n\n@=-", 5, "missing"},
        {inKey + "@=hex():0", 3, "hex(N)"},
        {inKey + "@=hex(100000000):0", 3, "hex(N)"},
        {inKey + "@=-\n\n@=\"\xC3\"", 5, "UTF-8"},
        {inKey + "@=\"\xED\xA0\x80\"", 3, "UTF-8"},
        {toUtf16(QLatin1String(header)) + 'x', 2, "middle"},
        {toUtf16(QLatin1String(inKey + "@=x")), 3, "a value is"},
    };
    for (const Case &c : cases) {
        const auto content = platform::parseRegFile(c.bytes);
        EXPECT_EQ(content.errorLine, c.line) << c.bytes.constData() << content.error.toStdString();
        EXPECT_THAT(content.error.toStdString(), testing::HasSubstr(c.word)) << c.bytes.constData();
        EXPECT_TRUE(content.edits.isEmpty());
    }
}

TEST(RegFile, GivesBackEveryNameAndEveryByte)
{
    const QString lone = QString(QChar(0xD800)) + QLatin1Char('x') + QChar(0xDC00);
    const QString nasty = QStringLiteral("q\"b\\n\r\nr\nt\t]=@;\u2028\uFEFF\uFFFE");
    const QString keys[] = {QString(), QStringLiteral("a]b\"; [c]"), QStringLiteral("-\\ \u00E4")};
    const auto odd = [](int size) { return QByteArray("a\0b\0c\0\0\0\0\0", 10).left(size); };
    QList<RegistryValue> values = {
        platform::textValue(QString(), QString()),
        platform::textValue(nasty, QStringLiteral("\"C:\\x\" \U0001F600 \uFFFF")),
        platform::textValue(QString(16383, QLatin1Char('n')), nasty),
        platform::textValue(QStringLiteral("lone"), lone),
        {QStringLiteral("wide"), 0xFFFFFFFF, QByteArray(1000, '\xAB')},
    };
    for (quint32 type = 0; type < 12; ++type) {
        for (int size = 0; size <= 10; ++size)
            values.append({QStringLiteral("%1,%2").arg(type).arg(size), type, odd(size)});
    }

    QList<RegistryEdit> edits;
    for (const QString &key : keys) {
        edits.append({Action::MakeKey, {RegistryRoot::Users, key}, {}});
        for (const RegistryValue &value : qAsConst(values))
            edits.append({Action::SetValue, edits.last().key, value});
        edits.append({Action::RemoveValue, edits.last().key, {nasty, 0, {}}});
    }
    edits.append({Action::RemoveKey, {RegistryRoot::ClassesRoot, keys[1]}, {}});

    const auto expectSame = [&edits](RegFileEncoding encoding) {
        const QByteArray bytes = toRegFile(edits, encoding);
        const auto content = platform::parseRegFile(bytes);
        EXPECT_EQ(content.error, QString()) << "in line " << content.errorLine;
        EXPECT_TRUE(content.edits == edits);
        return bytes;
    };
    EXPECT_TRUE(expectSame(RegFileEncoding::Utf16).startsWith("\xFF\xFE"));
    EXPECT_TRUE(expectSame(RegFileEncoding::Utf8).startsWith(header));
    edits[1].value.name = lone;
    EXPECT_TRUE(expectSame(RegFileEncoding::Utf8).startsWith("\xFF\xFE"));
}
