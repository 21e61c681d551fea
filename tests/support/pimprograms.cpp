#include "support/pimprograms.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTimeZone>

#include <gmock/gmock.h>

#include <ctime>

namespace {

const char khalSettings[] = R"([calendars]
[[calendar]]
path = %1/calendar
[sqlite]
path = %1/khal.db
[locale]
local_timezone = %2
default_timezone = %2
timeformat = %H:%M:%S
dateformat = %Y-%m-%d
longdateformat = %Y-%m-%d
datetimeformat = %Y-%m-%d %H:%M:%S
longdatetimeformat = %Y-%m-%d %H:%M:%S
)";

const char todomanSettings[] = R"(path = "%1/task*"
date_format = "%Y-%m-%d"
time_format = "%H:%M"
default_list = "tasks"
cache_path = "%1/todoman.db"
)";

const char khardSettings[] = R"([addressbooks]
[[contacts]]
path = %1/contacts
[vcard]
skip_unparsable = yes
)";

const char vdirsyncerSettings[] = R"([general]
status_path = "%1/status"
[pair calendars]
a = "calendars_here"
b = "calendars_there"
collections = ["calendar", "tasks"]
[pair cards]
a = "cards_here"
b = "cards_there"
collections = ["contacts"]
[storage calendars_here]
type = "filesystem"
path = "%1"
fileext = ".ics"
[storage calendars_there]
type = "filesystem"
path = "%1/synced"
fileext = ".ics"
[storage cards_here]
type = "filesystem"
path = "%1"
fileext = ".vcf"
[storage cards_there]
type = "filesystem"
path = "%1/synced"
fileext = ".vcf"
)";

void setTimeZone(const QByteArray &zone)
{
    zone.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", zone);
    tzset();
}

} // namespace

TimeZoneScope::TimeZoneScope(const QByteArray &zone)
    : m_before(qgetenv("TZ"))
{
    setTimeZone(zone);
}

TimeZoneScope::~TimeZoneScope()
{
    setTimeZone(m_before);
}

PimPrograms::PimPrograms()
{
    for (const char *kind : {"calendar", "tasks", "contacts"})
        QDir().mkpath(folder(QLatin1String(kind)));
    const QString zone = QString::fromLatin1(QTimeZone::systemTimeZoneId());
    write(QStringLiteral("khal.conf"),
          QString::fromLatin1(khalSettings)
              .replace(QLatin1String("%1"), m_home.path())
              .replace(QLatin1String("%2"), zone));
    for (const auto &[name, text] :
         {std::pair("todoman.py", todomanSettings), std::pair("khard.conf", khardSettings),
          std::pair("vdirsyncer.conf", vdirsyncerSettings)}) {
        write(QLatin1String(name), QString::fromLatin1(text).replace(QLatin1String("%1"), m_home.path()));
    }
}

void PimPrograms::copySamples(const QString &kind) const
{
    const QDir samples(sampleFolder(kind));
    for (const QString &name : samples.entryList(QDir::Files))
        EXPECT_TRUE(QFile::copy(samples.filePath(name), folder(kind) + QLatin1Char('/') + name));
}

QString PimPrograms::run(const QString &program, const QStringList &arguments, const QByteArray &input) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        environment.insert(QLatin1String(name), m_home.path());
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    QProcess process;
    process.setProcessEnvironment(environment);
    const bool isPython = program == QLatin1String("todoman");
    const QString settings = m_home.filePath(program + QLatin1String(isPython ? ".py" : ".conf"));
    process.start(program, QStringList{QStringLiteral("--config"), settings} + arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
                && process.exitCode() == 0)
        << program.toStdString() << ": " << process.errorString().toStdString() << "\n"
        << process.readAllStandardError().constData();
    return QString::fromUtf8(process.readAllStandardOutput());
}

QStringList PimPrograms::runForLines(const QString &program, const QStringList &arguments) const
{
    return run(program, arguments).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

QByteArray PimPrograms::onlyFile(const QString &folder)
{
    const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files);
    EXPECT_EQ(files.size(), 1) << folder.toStdString();
    QFile file(files.isEmpty() ? QString() : files.first().filePath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString PimPrograms::sampleFolder(const QString &kind)
{
    return QStringLiteral(SOURCE_DIR "/tests/platform/outlook/") + kind;
}

void PimPrograms::write(const QString &name, const QString &text) const
{
    QFile file(m_home.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) > 0) << name.toStdString();
}
