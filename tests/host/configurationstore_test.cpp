#include "kestmainprovider/configurationstore.h"
#include "support/providertest.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int waitMilliseconds = 3000;

class ConfigurationStoreTest : public testing::Test
{
protected:
    static QString text(const char *value) { return QString::fromUtf8(value); }

    void write(const QByteArray &content) const
    {
        QFile file(m_file);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    /// Runs @p work in a process of its own, which ends with it.
    template <typename Work>
    static pid_t fork(Work work)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            work();
            _exit(0);
        }
        return child;
    }

    QTemporaryDir m_dir;
    const QString m_file = m_dir.filePath(QStringLiteral("config.ini"));
};

} // namespace

TEST_F(ConfigurationStoreTest, AnyTextIsKeptApart)
{
    QStringList names = text("a|A|a/b|/|b\\c|%|%2F|General|[x]|k=v;w| x |a\nb|größe 文字|\"q\"|@x|text:y|a, "
                             "b|number:z|😀|100%0041")
                            .split(QLatin1Char('|'));
    names << QString() << QString(QChar(0xD800)) << QString(QChar());
    {
        ConfigurationStore store(m_file);
        for (const QString &name : names) {
            ASSERT_TRUE(store.setValue(name, text("key"), QString(name + QLatin1Char('|') + name)));
            ASSERT_TRUE(store.setValue(text("section"), name, name));
        }
        for (const double number : {0.1, -1e300, 5.0, 1.0 / 3})
            store.setValue(text("numbers"), QString::number(number, 'g', 17), number);
    }
    const ConfigurationStore store(m_file);
    for (const QString &name : names) {
        EXPECT_EQ(store.value(name, text("key"), QVariant()),
                  QVariant(QString(name + QLatin1Char('|') + name)));
        EXPECT_EQ(store.value(text("section"), name, QVariant()), QVariant(name));
        EXPECT_EQ(store.value(text("default"), name, 5), QVariant(5));
    }
    for (const double number : {0.1, -1e300, 5.0, 1.0 / 3})
        EXPECT_EQ(store.value(text("numbers"), QString::number(number, 'g', 17), 0), QVariant(number));
}

TEST_F(ConfigurationStoreTest, TellsEveryChangeOnce)
{
    ConfigurationStore store(m_file);
    QSignalSpy changes(&store, &ConfigurationStore::changed);
    store.setValue(text("s"), text("a"), 1.5);
    store.setValue(text("s"), text("b"), true);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(changes.wait(waitMilliseconds));
    EXPECT_FALSE(changes.wait(200));
    EXPECT_EQ(changes.count(), 1);

    const std::function<void()> outside[] = {
        [this] { write("[s]\na=from outside\n"); },
        [this] {
            QFile::remove(m_file + QLatin1String(".new"));
            ASSERT_TRUE(QFile::copy(m_file, m_file + QLatin1String(".new")));
            write("[s]\na=number:7\n");
            ASSERT_EQ(rename(qPrintable(m_file), qPrintable(QString(m_file + QLatin1String(".new")))), 0);
            ASSERT_EQ(rename(qPrintable(QString(m_file + QLatin1String(".new"))), qPrintable(m_file)), 0);
        },
        [this] { QFile::remove(m_file); },
    };
    const QVariant expected[] = {text("from outside"), 7.0, text("gone")};
    for (std::size_t i = 0; i < std::size(outside); ++i) {
        changes.clear();
        outside[i]();
        EXPECT_TRUE(changes.wait(waitMilliseconds)) << i;
        EXPECT_EQ(store.value(text("s"), text("a"), text("gone")), expected[i]) << i;
    }

    changes.clear();
    store.remove(text("s"), text("never there"));
    EXPECT_FALSE(changes.wait(200));
}

TEST_F(ConfigurationStoreTest, SurvivesACrashInTheMiddleOfAWrite)
{
    const QString value(20000, QLatin1Char('x'));
    QElapsedTimer time;
    time.start();
    ConfigurationStore(m_file).setValue(text("s"), text("before"), value);
    for (int round = 0; round < 15; ++round) {
        const pid_t child = fork([this, &value] {
            ConfigurationStore store(m_file);
            for (int i = 0;; ++i)
                store.setValue(text("s"), QString::number(i % 50), value);
        });
        usleep(static_cast<useconds_t>(5000 + round * 1700));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);

        const ConfigurationStore store(m_file);
        EXPECT_EQ(store.value(text("s"), text("before"), QVariant()), QVariant(value)) << round;
        for (int i = 0; i < 50; ++i) {
            const QVariant kept = store.value(text("s"), QString::number(i), QVariant());
            EXPECT_TRUE(!kept.isValid() || kept == QVariant(value)) << round;
        }
    }
    EXPECT_FALSE(QFile::exists(m_file + QLatin1String(".damaged")));
    EXPECT_TRUE(ConfigurationStore(m_file).setValue(text("s"), text("after"), 1));
    EXPECT_LT(time.elapsed(), 25000) << "the lock of a killed writer holds up the next one";
}

TEST_F(ConfigurationStoreTest, TwoProcessesWriteAtOnce)
{
    constexpr int writes = 400;
    const auto writeAll = [this](const char *section) {
        ConfigurationStore store(m_file);
        for (int i = 0; i < writes; ++i)
            store.setValue(text(section), QString::number(i), i);
    };
    const pid_t child = fork([&writeAll] { writeAll("child"); });
    writeAll("parent");
    waitpid(child, nullptr, 0);

    const ConfigurationStore store(m_file);
    for (int i = 0; i < writes; ++i) {
        EXPECT_EQ(store.value(text("child"), QString::number(i), QVariant()), QVariant(i));
        EXPECT_EQ(store.value(text("parent"), QString::number(i), QVariant()), QVariant(i));
    }
}

TEST_F(ConfigurationStoreTest, NothingIsLostOfADamagedFile)
{
    const auto keptBytes = [this] {
        QFile kept(m_file + QLatin1String(".damaged"));
        return kept.open(QIODevice::ReadOnly) ? kept.readAll() : QByteArray();
    };
    const char content[] = "[s]\ngood=50% 10 days\nnot understood\nwith=a\0b\n[unclosed\nlast=1\n";
    const QByteArray damaged(content, sizeof content - 1);
    write(damaged);
    ConfigurationStore store(m_file);
    EXPECT_EQ(keptBytes(), damaged);
    EXPECT_EQ(store.value(text("s"), text("good"), QVariant()), QVariant(text("50% 10 days")));
    EXPECT_EQ(store.value(text("s"), text("last"), QVariant()), QVariant(text("1")));
    EXPECT_TRUE(store.setValue(text("s"), text("new"), 2));

    // Damage that changes no value, while the store is open.
    const QByteArray damagedLater("[s]\nnew=int:2\n???\n");
    write(damagedLater);
    EXPECT_TRUE(QTest::qWaitFor([&] { return keptBytes() == damagedLater; }));
}
