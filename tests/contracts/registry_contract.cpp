#include "contracts/registry.h"

#include "contracts/backend.h"
#include "contracts/texts.h"

#include "platform/registry.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>

using platform::RegistryBytes;
using platform::RegistryRoot;
using testing::ElementsAre;
namespace RegistryType = platform::RegistryType;

namespace {

const std::u16string ownKey = u"Software\\kestcmd";
const std::u16string path = u"Software\\kestcmd\\Contract\\Values";

RegistryBytes bytes(const std::string &data)
{
    return {data.begin(), data.end()};
}

std::string text(const std::optional<RegistryBytes> &data)
{
    return data ? std::string(data->begin(), data->end()) : "nothing";
}

class RegistryContract : public testing::Test
{
protected:
    RegistryContract() { contracts::makeKey(path); }
    ~RegistryContract() override
    {
        contracts::removeKey(ownKey);
        contracts::removeValue(u"", u"kestcmd");
    }

    std::unique_ptr<platform::RegistryKey> key(const std::optional<std::u16string> &subkey = path)
    {
        return m_registry.open(RegistryRoot::CurrentUser, subkey).key;
    }

    void set(const std::u16string &name, const std::string &data, std::uint32_t type = RegistryType::binary)
    {
        EXPECT_TRUE(key()->write(name, type, bytes(data), static_cast<std::uint32_t>(data.size())));
    }

    /// Has what the listener is told written down, as "name data", with "nothing" for a deleted value.
    std::unique_ptr<platform::RegistryNotification> note(const std::u16string &name,
                                                         const std::u16string &subkey = path)
    {
        return m_registry.notify(RegistryRoot::CurrentUser, subkey, name,
                                 [this, name](const std::optional<RegistryBytes> &data) {
                                     const std::lock_guard<std::mutex> lock(m_mutex);
                                     m_notes.push_back(contracts::shown(name) + ' ' + text(data));
                                 });
    }

    std::vector<std::string> notes()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_notes;
    }

    /// Waits for so many more notes. Changes come one by one only if they are waited for.
    void await(std::size_t count)
    {
        m_awaited += count;
        EXPECT_TRUE(contracts::waitUntil([this] { return notes().size() >= m_awaited; }));
    }

private:
    const std::unique_ptr<platform::Platform> m_platform = contracts::makeRegistryPlatform();
    std::mutex m_mutex;
    std::vector<std::string> m_notes;
    std::size_t m_awaited = 0;

protected:
    platform::Registry &m_registry = m_platform->registry();
};

struct Written
{
    std::uint32_t type;
    std::string buffer;
    std::uint32_t counted;
    std::string stored;
};

template <std::size_t size>
std::string raw(const char (&data)[size])
{
    return std::string(data, size - 1);
}

const Written writtenValues[] = {
    // A text's null need not be counted.
    {RegistryType::string, raw("a\0b\0c\0"), 6, raw("a\0b\0c\0\0\0")},
    {RegistryType::string, raw("a\0b\0c\0"), 7, raw("a\0b\0c\0\0\0\0")},
    {RegistryType::string, raw("a\0b\0c\0"), 8, raw("a\0b\0c\0\0\0")},
    {RegistryType::string, raw("a\0b\0c\0"), 5, raw("a\0b\0c")},
    {RegistryType::string, raw("a\0b\0c\0"), 4, raw("a\0b\0")},
    {RegistryType::string, raw("a\0\0\0c\0"), 2, raw("a\0\0\0")},
    {RegistryType::string, raw("a\0\0\0c\0"), 3, raw("a\0\0\0c")},
    {RegistryType::string, raw("a\0\0\0c\0"), 7, raw("a\0\0\0c\0\0\0\0")},
    {RegistryType::string, raw(""), 0, raw("")},
    {RegistryType::string, raw(""), 1, raw("\0")},
    {RegistryType::string, raw("a"), 1, raw("a")},
    {RegistryType::string, raw("\0\0"), 2, raw("\0\0")},
    {RegistryType::expandString, raw("a\0b\0"), 4, raw("a\0b\0\0\0")},
    {RegistryType::multiString, raw("a\0b\0"), 5, raw("a\0b\0\0\0\0")},
    // Anything else is as it was given.
    {RegistryType::none, raw("abc"), 2, raw("ab")},
    {RegistryType::binary, raw("abc"), 5, raw("abc\0\0")},
    {RegistryType::binary, raw("a\0b\0"), 4, raw("a\0b\0")},
    {RegistryType::dword, raw("\1\2\3\4"), 4, raw("\1\2\3\4")},
    {RegistryType::dword, raw("\1\2\3\4"), 0, raw("")},
    {RegistryType::qword, raw("12345678"), 8, raw("12345678")},
    {12345, raw("a\0b\0"), 4, raw("a\0b\0")},
    {RegistryType::binary, std::string(1000000, 'x'), 1000000, std::string(1000000, 'x')},
};

} // namespace

TEST_F(RegistryContract, WritesAndReadsValues)
{
    for (const std::u16string &name : {std::u16string(u"value"), std::u16string()}) {
        for (const Written &written : writtenValues) {
            ASSERT_TRUE(key()->write(name, written.type, bytes(written.buffer), written.counted));
            const auto size = static_cast<std::uint32_t>(written.stored.size());
            const auto info = key()->info(name);
            const std::string what = text(bytes(written.buffer.substr(0, 10))) + ' '
                + std::to_string(written.counted) + " of type " + std::to_string(written.type);
            ASSERT_TRUE(info) << what;
            EXPECT_EQ(info->type, written.type) << what;
            EXPECT_EQ(info->size, size) << what;
            EXPECT_EQ(key()->read(name, size), bytes(written.stored)) << what;
            EXPECT_EQ(key()->read(name, size + 5), bytes(written.stored)) << what;
            EXPECT_FALSE(size > 0 && key()->read(name, size - 1)) << what;
        }
    }
    const auto opened = key();
    EXPECT_FALSE(opened->write(u"value", RegistryType::binary, {}, 0xffffffff));
    EXPECT_TRUE(opened->read(u"value", 0xffffffff));
    EXPECT_FALSE(opened->info(u"missing"));
    EXPECT_FALSE(opened->read(u"missing", 10));
    contracts::removeKey(path);
    EXPECT_FALSE(opened->write(u"value", RegistryType::binary, {1}, 1));
    EXPECT_FALSE(opened->info(u"value"));
}

TEST_F(RegistryContract, FindsKeysAndValues)
{
    for (const RegistryRoot root : {RegistryRoot::ClassesRoot, RegistryRoot::CurrentUser,
                                    RegistryRoot::LocalMachine, RegistryRoot::Users}) {
        EXPECT_EQ(m_registry.open(root, std::nullopt).status, 0);
        EXPECT_TRUE(m_registry.open(root, u"").key);
    }
    EXPECT_TRUE(key(std::nullopt)->write(u"kestcmd", RegistryType::binary, {1}, 1));
    EXPECT_TRUE(key(u"")->info(u"KESTCMD"));

    EXPECT_TRUE(key()->write(u"Gr\u00f6\u00dfe \u0436", RegistryType::binary, {1}, 1));
    EXPECT_TRUE(key()->info(u"gR\u00d6\u00dfE \u0416"));
    EXPECT_TRUE(key()->info(std::u16string(u"Gr\u00f6\u00dfe \u0436\0x", 9)));
    contracts::makeKey(ownKey + u"\\R\u00e4der");
    for (const std::u16string found : {u"\\R\u00c4DER", u"\\r\u00e4der\\", u"\\CONTRACT\\values"})
        EXPECT_TRUE(key(ownKey + found)) << contracts::shown(found);
    for (const std::u16string missing :
         {u"Software\\kestcmd\\None", u"\\", u"\\Software", u"Software\\kestcmd\\Contract\\Values\\value"}) {
        const auto opening = m_registry.open(RegistryRoot::CurrentUser, missing);
        EXPECT_FALSE(opening.key) << contracts::shown(missing);
        EXPECT_NE(opening.status, 0) << contracts::shown(missing);
    }
    for (const auto &subkey : {std::optional<std::u16string>(), std::optional<std::u16string>(u"Software")}) {
        const auto opening = m_registry.open(RegistryRoot::None, subkey);
        EXPECT_FALSE(opening.key);
        EXPECT_NE(opening.status, 0);
    }
}

TEST_F(RegistryContract, TellsEveryChangeAndNothingElse)
{
    set(u"a", "before");
    const auto upper = note(u"A");
    const auto b = note(u"b");
    set(u"a", "before");
    set(u"c", "of no interest");
    set(u"b", "new");
    await(1);
    set(u"a", "before", RegistryType::dword);
    await(1);
    set(u"a", "");
    await(1);
    contracts::removeValue(path, u"a");
    await(1);
    contracts::removeValue(path, u"a");
    contracts::removeValue(path, u"c");
    set(u"a", "made again");
    await(1);
    contracts::removeKey(ownKey);
    await(2);
    contracts::makeKey(path);
    set(u"b", "key made again");
    await(1);
    contracts::removeKey(path);
    await(1);
    contracts::makeKey(path);
    set(u"a", "end");
    await(1);
    auto told = notes();
    ASSERT_EQ(told.size(), 10u);
    std::sort(&told[5], &told[7]); // Two values that went at once.
    EXPECT_THAT(told,
                ElementsAre("b new", "A before", "A ", "A nothing", "A made again", "A nothing", "b nothing",
                            "b key made again", "b nothing", "A end"));
}

TEST_F(RegistryContract, RegistersForKeysThatAreThere)
{
    EXPECT_FALSE(note(u"a", u"Software\\kestcmd\\None"));
    EXPECT_FALSE(m_registry.notify(RegistryRoot::None, path, u"a", [](const auto &) {}));
    const auto atRoot = note(u"kestcmd", u"");
    const auto again = note(u"kestcmd", u"");
    const auto standard = note(u"");
    EXPECT_TRUE(key(std::nullopt)->write(u"kestcmd", RegistryType::binary, bytes("x"), 1));
    await(2);
    set(u"", "y");
    await(1);
    EXPECT_THAT(notes(), ElementsAre("kestcmd x", "kestcmd x", " y"));
}

TEST_F(RegistryContract, DoesNotCallAListenerThatHasGone)
{
    std::atomic<bool> isEnding(false);
    std::thread writer([&] {
        for (int i = 0; !isEnding; ++i)
            set(u"a", std::to_string(i));
    });
    std::atomic<int> calls(0);
    for (int i = 0; i < 60; ++i) {
        std::atomic<bool> isThere(true);
        auto notification = m_registry.notify(
            RegistryRoot::CurrentUser, path, u"a", [&](const std::optional<RegistryBytes> &data) {
                EXPECT_TRUE(isThere);
                EXPECT_TRUE(data);
                EXPECT_TRUE(key()->write(u"told", RegistryType::binary, *data, 1));
                EXPECT_TRUE(isThere);
                ++calls;
            });
        ASSERT_TRUE(notification);
        const int before = calls;
        EXPECT_TRUE(i % 20 > 0 || contracts::waitUntil([&] { return calls > before; }));
        notification.reset();
        isThere = false;
    }
    isEnding = true;
    writer.join();
    // The last state is always told, however many came before.
    const auto last = note(u"a");
    for (int i = 0; i < 200; ++i)
        set(u"a", std::to_string(i));
    set(u"a", "last");
    EXPECT_TRUE(contracts::waitUntil([&] { return !notes().empty() && notes().back() == "a last"; }));
}
