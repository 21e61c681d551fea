#include "platform/desktop/desktopplatform.h"
#include "platform/desktop/registrydata.h"
#include "support/registryprocess.h"

#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>

using platform::RegistryRoot;
namespace RegistryType = platform::RegistryType;

namespace {

class RegistryStoreTest : public testing::Test
{
protected:
    QTemporaryDir m_dir;
    platform::DesktopPlatform m_platform{platform::DeviceFolder(m_dir.path())};
    platform::RegistryStore m_store{platform::DeviceFolder(m_dir.path())};

    std::unique_ptr<platform::RegistryKey> widgets()
    {
        return m_platform.registry().open(RegistryRoot::CurrentUser, u"Software\\Widgets").key;
    }
};

} // namespace

TEST_F(RegistryStoreTest, ComparesNamesWithoutLetterCaseAndKeepsTheFirstSpelling)
{
    const auto key = m_store.findOrMake(RegistryRoot::LocalMachine, QStringLiteral("Räder\\Straße"));
    ASSERT_TRUE(key);
    EXPECT_EQ(m_store.find(RegistryRoot::LocalMachine, QStringLiteral("RÄDER\\sTRAßE\\")), key);
    EXPECT_FALSE(m_store.find(RegistryRoot::LocalMachine, QStringLiteral("RÄDER\\STRASSE")));
    EXPECT_FALSE(m_store.find(RegistryRoot::CurrentUser, QStringLiteral("Räder\\Straße")));
    EXPECT_FALSE(m_store.find(RegistryRoot::None, QString()));
    EXPECT_EQ(m_store.findOrMake(RegistryRoot::LocalMachine, QStringLiteral("räder\\STRAße")), key);
    EXPECT_EQ(m_store.subkeys(*m_store.find(RegistryRoot::LocalMachine, QStringLiteral("räder"))),
              QStringList(QStringLiteral("Straße")));

    ASSERT_TRUE(m_store.setValue(*key, {QStringLiteral("Größe"), RegistryType::binary, "1"}));
    ASSERT_TRUE(m_store.setValue(*key, {QStringLiteral("GRÖßE"), RegistryType::binary, "2"}));
    ASSERT_EQ(m_store.values(*key).size(), 1);
    EXPECT_EQ(m_store.values(*key).first().name, QStringLiteral("Größe"));
    EXPECT_EQ(m_store.values(*key).first().data, QByteArray("2"));

    const QString tooLong(256, QLatin1Char('k'));
    for (const QString &name : {QStringLiteral("a\\\\b"), QStringLiteral("a\nb"), tooLong})
        EXPECT_FALSE(m_store.findOrMake(RegistryRoot::LocalMachine, name)) << name.toStdString();
}

TEST_F(RegistryStoreTest, MakesNoKeyByWriting)
{
    EXPECT_EQ(m_platform.registry().open(RegistryRoot::CurrentUser, u"Software\\None").status, 2);
    const auto key = widgets();
    ASSERT_TRUE(m_store.removeKey(*m_store.find(RegistryRoot::CurrentUser, QStringLiteral("Software"))));
    EXPECT_FALSE(key->write(u"v", RegistryType::binary, {1}, 1));
    EXPECT_FALSE(key->info(u"Greeting"));
    EXPECT_FALSE(widgets());
    EXPECT_TRUE(m_store.find(RegistryRoot::CurrentUser, QString()));
}

TEST_F(RegistryStoreTest, KeepsWhatTwoProcessesWriteAtOnce)
{
    constexpr quint32 count = 500;
    RegistryProcess first(m_dir.path(), count, 1);
    RegistryProcess second(m_dir.path(), count, 2);
    EXPECT_EQ(first.finish(), count);
    EXPECT_EQ(second.finish(), count);
    const auto key = m_store.find(RegistryRoot::CurrentUser, QStringLiteral("Software\\Widgets"));
    EXPECT_EQ(platform::numberIn(*m_store.value(*key, QStringLiteral("v0"))), count);
    EXPECT_EQ(platform::numberIn(*m_store.value(*key, QStringLiteral("v1"))), count - 1);
}

TEST_F(RegistryStoreTest, LosesNothingWhenAWriterIsKilled)
{
    constexpr int rounds = 8;
    constexpr int endless = 1000000;
    for (int round = 0; round < rounds; ++round) {
        RegistryProcess writer(m_dir.path(), endless, 1);
        const auto told = static_cast<quint32>(writer.killAfter(round * 20 + 1));
        platform::RegistryStore reader{platform::DeviceFolder(m_dir.path())};
        const auto key = reader.find(RegistryRoot::CurrentUser, QStringLiteral("Software\\Widgets"));
        ASSERT_TRUE(key) << reader.problem().toStdString();
        EXPECT_GE(platform::numberIn(*reader.value(*key, QStringLiteral("v0"))), told);
    }
    platform::SqliteDatabase file;
    ASSERT_TRUE(file.open(m_dir.filePath(QStringLiteral("registry.db"))));
    platform::SqliteStatement check = file.prepare("PRAGMA integrity_check");
    ASSERT_TRUE(check.next());
    EXPECT_EQ(check.bytes(0), QByteArray("ok"));
}

TEST(RegistryStore, SaysWhatIsWrongWithADamagedFile)
{
    const QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("registry.db")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(10000, 'x'));
    file.close();
    platform::RegistryStore store{platform::DeviceFolder(dir.path())};
    EXPECT_FALSE(store.find(RegistryRoot::CurrentUser, QString()));
    EXPECT_EQ(store.problem(), file.fileName() + QLatin1String(": file is not a database"));
    EXPECT_FALSE(store.setValue(1, {}));
}
