#include "platform/desktop/desktopplatform.h"
#include "platform/desktop/registrydata.h"
#include "support/registryprocess.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <mutex>

using platform::RegistryRoot;
namespace RegistryType = platform::RegistryType;

namespace {

/// The data that a listener was told.
class Notes
{
public:
    platform::RegistryListener listener()
    {
        return [this](const std::optional<platform::RegistryBytes> &data) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_notes.append(data ? QByteArray(reinterpret_cast<const char *>(data->data()),
                                             static_cast<int>(data->size()))
                                : QByteArray("removed"));
        };
    }

    QByteArrayList await(int count)
    {
        constexpr int longest = 20000;
        EXPECT_TRUE(QTest::qWaitFor([&] { return all().size() >= count; }, longest));
        return all();
    }

    QByteArrayList all()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_notes;
    }

private:
    std::mutex m_mutex;
    QByteArrayList m_notes;
};

class RegistryStoreTest : public testing::Test
{
protected:
    static platform::RegistryStore::Key keyIn(platform::RegistryStore &store)
    {
        const auto key = store.find(RegistryRoot::CurrentUser, QStringLiteral("Software\\Widgets"));
        EXPECT_TRUE(key) << store.problem().toStdString();
        return key.value_or(0);
    }

    /// As another process finds it.
    quint32 number(const char *name) const
    {
        platform::RegistryStore store{platform::DeviceFolder(m_dir.path())};
        return platform::numberIn(*store.value(keyIn(store), QLatin1String(name))).value_or(0);
    }

    void set(const char *data)
    {
        EXPECT_TRUE(m_store.setValue(keyIn(m_store), {QStringLiteral("v0"), RegistryType::binary, data}));
    }

    std::unique_ptr<platform::RegistryNotification> watch(Notes &notes)
    {
        return m_platform.registry().notify(RegistryRoot::CurrentUser, u"Software\\Widgets", u"v0",
                                            notes.listener());
    }

    /// The first column of the first row that the database gives.
    QByteArray query(const char *sql)
    {
        platform::SqliteDatabase file;
        EXPECT_TRUE(file.open(m_dir.filePath(QStringLiteral("registry.db"))));
        platform::SqliteStatement select = file.prepare(sql);
        return select.next() ? select.bytes(0) : QByteArray();
    }

    QTemporaryDir m_dir;
    platform::DesktopPlatform m_platform{platform::DeviceFolder(m_dir.path())};
    platform::RegistryStore m_store{platform::DeviceFolder(m_dir.path())};
};

} // namespace

TEST_F(RegistryStoreTest, KeepsTheFirstSpellingOfNames)
{
    const auto key = m_store.findOrMake(RegistryRoot::LocalMachine, QStringLiteral("Räder\\Straße"));
    ASSERT_TRUE(key);
    EXPECT_FALSE(m_store.find(RegistryRoot::LocalMachine, QStringLiteral("RÄDER\\STRASSE")));
    EXPECT_EQ(m_store.findOrMake(RegistryRoot::LocalMachine, QStringLiteral("räder\\STRAße")), key);
    EXPECT_EQ(m_store.subkeys(*m_store.find(RegistryRoot::LocalMachine, QStringLiteral("räder"))),
              QStringList(QStringLiteral("Straße")));
    ASSERT_TRUE(m_store.setValue(*key, {QStringLiteral("Größe"), RegistryType::binary, "1"}));
    ASSERT_TRUE(m_store.setValue(*key, {QStringLiteral("GRÖßE"), RegistryType::binary, "2"}));
    ASSERT_EQ(m_store.values(*key).size(), 1);
    EXPECT_EQ(m_store.values(*key).first().name, QStringLiteral("Größe"));
    EXPECT_EQ(m_store.values(*key).first().data, QByteArray("2"));
    EXPECT_FALSE(m_store.findOrMake(RegistryRoot::LocalMachine, QStringLiteral("a\\\\b")));
}

TEST_F(RegistryStoreTest, KeepsWhatTwoProcessesWriteAtOnce)
{
    constexpr quint32 count = 500;
    RegistryProcess first(m_dir.path(), count, 1);
    RegistryProcess second(m_dir.path(), count, 2);
    EXPECT_EQ(first.finish(), count);
    EXPECT_EQ(second.finish(), count);
    EXPECT_EQ(number("v0"), count);
    EXPECT_EQ(number("v1"), count - 1);
}

TEST_F(RegistryStoreTest, LosesNothingWhenAWriterIsKilled)
{
    constexpr int rounds = 8;
    constexpr int endless = 1000000;
    for (int round = 0; round < rounds; ++round) {
        RegistryProcess writer(m_dir.path(), endless, 1);
        const auto told = static_cast<quint32>(writer.killAfter(round * 20 + 1));
        EXPECT_GE(number("v0"), told);
    }
    EXPECT_EQ(query("PRAGMA integrity_check"), "ok");
}

TEST_F(RegistryStoreTest, TellsEveryChangeHoweverFastTheyCome)
{
    Notes notes;
    const auto watched = watch(notes);
    set("first");
    EXPECT_TRUE(m_store.removeValue(keyIn(m_store), QStringLiteral("V0")));
    set("made again");
    EXPECT_FALSE(m_store.inTransaction([this] {
        set("taken back");
        return false;
    }));
    EXPECT_TRUE(m_store.removeKey(keyIn(m_store)));
    EXPECT_TRUE(m_store.findOrMake(RegistryRoot::CurrentUser, QStringLiteral("Software\\Widgets")));
    set("end");
    EXPECT_EQ(notes.await(5), (QByteArrayList{"first", "removed", "made again", "removed", "end"}));
}

TEST_F(RegistryStoreTest, TellsEveryChangeWhileOthersComeAndGo)
{
    constexpr int count = 2000;
    Notes notes;
    const auto steady = watch(notes);
    RegistryProcess writer(m_dir.path(), count, 1);
    for (int i = 0; notes.all().size() < count && i < 20000; ++i) {
        Notes others;
        EXPECT_TRUE(watch(others));
    }
    EXPECT_EQ(writer.finish(), count);
    const QByteArrayList told = notes.await(count);
    ASSERT_EQ(told.size(), count);
    for (int i = 0; i < count; ++i)
        ASSERT_EQ(told.at(i), platform::numberValue(QString(), static_cast<quint32>(i + 1)).data);
}

TEST_F(RegistryStoreTest, KeepsChangesOnlyForLivingWatchers)
{
    const char *const changes = "SELECT count(*) FROM change";
    const char *const watchers = "SELECT count(*) FROM watcher";
    set("nobody watches");
    EXPECT_EQ(query(changes), "0");
    query("INSERT INTO watcher (position) VALUES (0)"); // of a process that was killed
    set("listed");
    EXPECT_EQ(query(changes), "1");
    Notes notes;
    auto watched = watch(notes);
    platform::RegistryStore other{platform::DeviceFolder(m_dir.path())};
    EXPECT_TRUE(other.find(RegistryRoot::CurrentUser, QString()));
    EXPECT_EQ(query(watchers), "1");
    set("told");
    EXPECT_EQ(notes.await(1), QByteArrayList{"told"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return query(changes) == "0"; }));
    watched.reset();
    EXPECT_EQ(query(watchers), "0");
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
