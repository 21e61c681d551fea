#include "platform/desktop/registrydata.h"
#include "support/providertest.h"

using platform::RegistryRoot;
namespace RegistryType = platform::RegistryType;

namespace {

class RegistryTest : public ProviderTest
{
protected:
    const platform::RegistryStore::Key m_key =
        *m_registry.findOrMake(RegistryRoot::CurrentUser, QStringLiteral("Software\\Widgets"));

    QString read(const QString &path)
    {
        return run(QStringLiteral("results = []; readReg('%1', this, cb);"
                                  " results.map(function(r) { return String(r[0]); })")
                       .arg(QString(path).replace(QLatin1Char('\\'), QLatin1String("\\\\"))));
    }
};

struct StoredValue
{
    const char *what;
    quint32 type;
    QByteArray data;
    const char *results;
};

const StoredValue storedValues[] = {
    {"text", RegistryType::string, QByteArray("a\0b\0\0\0", 6), R"(["ab"])"},
    {"text with an odd byte", RegistryType::string, QByteArray("a\0b\0\0\0\0", 7), R"(["ab"])"},
    {"text without terminating null", RegistryType::string, QByteArray("a\0b\0", 4), R"(["a"])"},
    {"text with a null inside", RegistryType::string, QByteArray("a\0\0\0b\0\0\0", 8), "[\"a\\u0000b\"]"},
    {"text of 2 bytes", RegistryType::string, QByteArray("\0\0", 2), R"([""])"},
    {"text of 1 byte", RegistryType::string, QByteArray("\0", 1), R"([""])"},
    {"text of 0 bytes", RegistryType::string, QByteArray(""), R"([""])"},
    {"number", RegistryType::dword, QByteArray("\xfe\xff\xff\xff", 4), R"(["-2"])"},
    {"number of 2 bytes", RegistryType::dword, QByteArray("\x02\x01", 2), R"(["258"])"},
    {"number of 5 bytes", RegistryType::dword, QByteArray("\1\0\0\0\0", 5), "[]"},
    {"other type", RegistryType::binary, QByteArray("\1\0\0\0", 4), "[]"},
    {"text to be expanded", RegistryType::expandString, QByteArray("a\0\0\0", 4), "[]"},
};

struct PathCase
{
    const char *path;
    const char *results;
};

const PathCase pathCases[] = {
    {"HKCU\\Software\\Widgets\\Greeting", R"(["Hello"])"},
    {"HKEY_CURRENT_USER\\SOFTWARE\\widgets\\greeting", R"(["Hello"])"},
    {"HKCU\\top", R"(["-1"])"},
    {"HKCU\\\\top", R"(["-1"])"},
    {"hkcu\\Software\\Widgets\\Greeting", R"(["undefined"])"},
    {"HKU\\Software\\Widgets\\Greeting", R"(["undefined"])"},
    {"HKCU", "[]"},
    {"nonsense", R"(["undefined"])"},
    {"HKCU\\Software\\None\\Greeting", R"(["undefined"])"},
    {"HKCU\\Software\\Widgets\\none", "[]"},
    {"HKUS\\none", "[]"},
    {"", "[]"},
};

} // namespace

TEST_F(RegistryTest, ReadsByTypeAndSize)
{
    for (const StoredValue &stored : storedValues) {
        ASSERT_TRUE(m_registry.setValue(m_key, {QStringLiteral("v"), stored.type, stored.data}));
        EXPECT_EQ(read(QStringLiteral("HKCU\\Software\\Widgets\\v")), QLatin1String(stored.results))
            << stored.what;
    }
}

TEST_F(RegistryTest, FindsRootKeyAndValueInThePath)
{
    ASSERT_TRUE(m_registry.setValue(*m_registry.find(RegistryRoot::CurrentUser, QString()),
                                    platform::numberValue(QStringLiteral("top"), 0xffffffff)));
    for (const PathCase &path : pathCases)
        EXPECT_EQ(read(QLatin1String(path.path)), QLatin1String(path.results)) << path.path;
    EXPECT_EQ(takeMessages(), QStringList());
}

TEST_F(RegistryTest, WritesNumbersAndTexts)
{
    const auto written = [this](const char *value) {
        run(QStringLiteral("writeReg('HKCU\\\\Software\\\\Widgets\\\\v', %1)").arg(QLatin1String(value)));
        const auto stored = m_registry.value(m_key, QStringLiteral("v"));
        return stored ? QByteArray::number(stored->type) + ' ' + stored->data.toHex() : QByteArray();
    };
    EXPECT_EQ(written("2.9"), "4 02000000");
    EXPECT_EQ(written("-2.9"), "4 feffffff");
    EXPECT_EQ(written("4294967296 + 7"), "4 07000000");
    EXPECT_EQ(written("NaN"), "4 00000000");
    EXPECT_EQ(written("'abc'"), "1 610062006300000000");
    EXPECT_EQ(written("''"), "1 00");
    for (const char *text : {"'a\\u0000b'", "'\\ud83d\\ude00'", "'\\ud83d'", "new Array(100000).join('x')"}) {
        written(text);
        EXPECT_EQ(run(QStringLiteral("results = []; readReg('HKCU\\\\Software\\\\Widgets\\\\v', this, cb);"
                                     "results[0][0] === %1")
                          .arg(QLatin1String(text))),
                  QStringLiteral("true"))
            << text;
    }
}
