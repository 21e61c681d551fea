#include "platform/desktop/desktopplatform.h"
#include "platform/desktop/registrydata.h"
#include "support/registryprocess.h"

#include <QtCore/QTemporaryDir>
#include <condition_variable>
#include <gmock/gmock.h>
#include <thread>

using platform::RegistryBytes;
using platform::RegistryRoot;
using testing::ElementsAre;
namespace RegistryType = platform::RegistryType;

namespace {

const std::u16string widgets = u"Software\\Widgets";

/// What listeners were told, one text a change: the value's name and the data's bytes, or "-" for deleted.
class Notes
{
public:
    platform::RegistryListener listener(const std::string &name)
    {
        return [this, name](const std::optional<RegistryBytes> &data) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_notes.push_back(name + ' ' + (data ? std::string(data->cbegin(), data->cend()) : "-"));
            m_changed.notify_all();
        };
    }

    std::vector<std::string> await(std::size_t count)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_changed.wait_for(lock, std::chrono::seconds(20), [&] { return m_notes.size() >= count; });
        return m_notes;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::string> m_notes;
};

class RegistryWatchTest : public testing::Test
{
protected:
    std::unique_ptr<platform::RegistryNotification> watch(const std::string &name)
    {
        return m_platform.registry().notify(RegistryRoot::CurrentUser, widgets,
                                            QString::fromStdString(name).toStdU16String(),
                                            m_notes.listener(name));
    }

    /// Through a connection of its own, as another process would.
    void set(const char *name, quint32 type, const QByteArray &data)
    {
        EXPECT_TRUE(m_store.setValue(key(), {QString::fromLatin1(name), type, data}));
    }

    platform::RegistryStore::Key key()
    {
        return *m_store.findOrMake(RegistryRoot::CurrentUser, QString::fromStdU16String(widgets));
    }

    qint64 count(const char *query)
    {
        platform::SqliteDatabase file;
        EXPECT_TRUE(file.open(m_dir.filePath(QStringLiteral("registry.db"))));
        platform::SqliteStatement select = file.prepare(query);
        return select.next() ? select.number(0) : -1;
    }

    QTemporaryDir m_dir;
    platform::DesktopPlatform m_platform{platform::DeviceFolder(m_dir.path())};
    platform::RegistryStore m_store{platform::DeviceFolder(m_dir.path())};
    Notes m_notes;
};

} // namespace

TEST_F(RegistryWatchTest, TellsEveryChangeAndNothingElse)
{
    set("a", RegistryType::binary, "before");
    const auto a = watch("A");
    const auto again = watch("a");
    set("b", RegistryType::binary, "another value");
    set("a", RegistryType::binary, "before");
    set("a", RegistryType::dword, "before");
    set("a", RegistryType::dword, "");
    EXPECT_TRUE(m_store.removeValue(key(), QStringLiteral("A")));
    EXPECT_FALSE(m_store.removeValue(key(), QStringLiteral("A")));
    set("a", RegistryType::string, "made again");
    EXPECT_TRUE(m_store.removeKey(key()));
    set("a", RegistryType::string, "key made again");
    EXPECT_FALSE(m_store.inTransaction([this] {
        set("a", RegistryType::string, "taken back");
        return false;
    }));
    set("a", RegistryType::string, "end");
    EXPECT_THAT(m_notes.await(14),
                ElementsAre("A before", "a before", "A ", "a ", "A -", "a -", "A made again", "a made again",
                            "A -", "a -", "A key made again", "a key made again", "A end", "a end"));
}

TEST_F(RegistryWatchTest, LosesNothingWhileOthersComeAndGo)
{
    constexpr int count = 2000;
    const auto steady = watch("v0");
    RegistryProcess writer(m_dir.path(), count, 1);
    const auto isFinished = [&] { return m_notes.await(0).size() >= count; };
    for (int i = 0; !isFinished() && i < 20000; ++i) {
        Notes notes;
        const auto passing = m_platform.registry().notify(RegistryRoot::CurrentUser, widgets, u"v0",
                                                          notes.listener("passing"));
        EXPECT_TRUE(passing);
    }
    EXPECT_EQ(writer.finish(), count);
    const std::vector<std::string> notes = m_notes.await(count);
    ASSERT_EQ(notes.size(), static_cast<std::size_t>(count));
    for (quint32 i = 0; i < count; ++i) {
        const QByteArray data = platform::numberValue(QString(), i + 1).data;
        ASSERT_EQ(notes[i], "v0 " + data.toStdString());
    }
}

TEST_F(RegistryWatchTest, KeepsChangesOnlyForLivingWatchers)
{
    set("a", RegistryType::binary, "nobody watches");
    EXPECT_EQ(count("SELECT count(*) FROM change"), 0);
    count("INSERT INTO watcher (position) VALUES (0)"); // of a process that was killed
    set("a", RegistryType::binary, "listed");
    EXPECT_EQ(count("SELECT count(*) FROM change"), 1);
    {
        const auto watched = watch("a");
        platform::RegistryStore other{platform::DeviceFolder(m_dir.path())};
        EXPECT_TRUE(other.find(RegistryRoot::CurrentUser, QString()));
        EXPECT_EQ(count("SELECT count(*) FROM watcher"), 1);
        set("a", RegistryType::binary, "told");
        EXPECT_THAT(m_notes.await(1), ElementsAre("a told"));
        for (int i = 0; i < 100 && count("SELECT count(*) FROM change") > 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        EXPECT_EQ(count("SELECT count(*) FROM change"), 0);
    }
    EXPECT_EQ(count("SELECT count(*) FROM watcher"), 0);
}
