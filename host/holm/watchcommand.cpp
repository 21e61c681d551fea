#include "watchcommand.h"

#include "exitstatus.h"
#include "scriptengine.h"
#include "unixsignals.h"

#include <platform/desktop/devicefolder.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <csignal>
#include <iostream>
#include <sys/prctl.h>

namespace {

// An editor may write several files, or one in several steps.
constexpr int settleMilliseconds = 150;
constexpr int patienceMilliseconds = 3000;

class Child : public QProcess
{
protected:
    // Nothing of a run stays behind, even if this process is killed.
    void setupChildProcess() override { prctl(PR_SET_PDEATHSIG, SIGTERM); }
};

// The nearest one that exists.
QString folderAbove(const QString &path)
{
    const QString above = QFileInfo(path).absolutePath();
    return QFileInfo::exists(above) ? above : folderAbove(above);
}

} // namespace

WatchCommand::WatchCommand(const RunOptions &options, const QStringList &childCommandLine)
    : m_options(options)
    , m_commandLine(childCommandLine)
{
    m_outputs.append(options.device.isEmpty() ? platform::DeviceFolder::current().path()
                                              : platform::DeviceFolder(options.device).path());
    if (!options.screenshot.isEmpty())
        m_outputs.append(QDir::cleanPath(QDir().absoluteFilePath(options.screenshot)));

    m_settle.setSingleShot(true);
    m_settle.setInterval(settleMilliseconds);
    connect(&m_settle, &QTimer::timeout, this, &WatchCommand::restartIfChanged);
    const auto settle = [this] { m_settle.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, settle);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, settle);
}

WatchCommand::~WatchCommand()
{
    stopChild();
}

int WatchCommand::execute()
{
    UnixSignals signalsOfUnix;
    connect(&signalsOfUnix, &UnixSignals::received, this,
            [](int number) { QCoreApplication::exit(ExitStatus::signalBase + number); });
    m_files = watchFiles();
    start();
    const int status = QCoreApplication::exec();
    stopChild();
    return status;
}

bool WatchCommand::isOutput(const QString &path) const
{
    const QString absolute = QDir::cleanPath(QDir().absoluteFilePath(path));
    return std::any_of(m_outputs.cbegin(), m_outputs.cend(), [&absolute](const QString &output) {
        return absolute == output || absolute.startsWith(output + QLatin1Char('/'));
    });
}

WatchCommand::Files WatchCommand::watchFiles()
{
    const QFileInfo script(m_options.script);
    const bool isFolder = script.fileName() == QLatin1String("widget.js");

    // The folder, too: files that editors replace drop out of the watcher. And the one above, in which
    // the widget's folder may be replaced.
    QStringList paths{m_options.script, script.path(), folderAbove(script.absolutePath())};
    if (isFolder) {
        QDirIterator iterator(script.path(), QDir::AllEntries | QDir::NoDotAndDotDot,
                              QDirIterator::Subdirectories);
        while (iterator.hasNext()) {
            const QString path = iterator.next();
            if (!isOutput(path))
                paths.append(path);
        }
    }
    // Afresh: a watcher stays with a folder that was moved away.
    if (!m_watched.isEmpty())
        m_watcher.removePaths(m_watched);
    m_watched = paths;
    m_watcher.addPaths(paths);

    Files files;
    for (const QString &path : qAsConst(paths)) {
        const QFileInfo info(path);
        if (info.isFile())
            files.insert(path, {info.lastModified().toMSecsSinceEpoch(), info.size()});
    }
    return files;
}

QString WatchCommand::syntaxError() const
{
    QStringList scripts{m_options.script};
    for (auto file = m_files.cbegin(); file != m_files.cend(); ++file) {
        if (file.key().endsWith(QLatin1String(".js")))
            scripts.append(file.key());
    }
    for (const QString &script : qAsConst(scripts)) {
        QString error = ScriptEngine::syntaxError(script);
        if (!error.isEmpty())
            return error;
    }
    return QString();
}

void WatchCommand::restartIfChanged()
{
    const Files files = watchFiles();
    if (files == m_files)
        return;
    m_files = files;
    const QString error = syntaxError();
    if (!error.isEmpty()) {
        std::cerr << error.toStdString() << std::endl;
        return;
    }
    stopChild();
    start();
}

void WatchCommand::start()
{
    m_child = std::make_unique<Child>();
    m_child->setProcessChannelMode(QProcess::ForwardedChannels);
    m_child->setInputChannelMode(QProcess::ForwardedInputChannel);
    connect(m_child.get(), QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this](int status) { childEnded(status); });
    connect(m_child.get(), &QProcess::errorOccurred, this, [](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            QCoreApplication::exit(ExitStatus::cannotStart);
    });
    m_child->start(QCoreApplication::applicationFilePath(), m_commandLine);
}

void WatchCommand::stopChild()
{
    if (!m_child)
        return;
    m_child->disconnect(this);
    m_child->terminate();
    if (m_child->state() != QProcess::NotRunning && !m_child->waitForFinished(patienceMilliseconds)) {
        m_child->kill();
        m_child->waitForFinished();
    }
    m_child.reset();
}

void WatchCommand::childEnded(int status)
{
    // Without a robot, that status can only be what the script gave to quit().
    const bool robotFailed = status == ExitStatus::unanswered && !m_options.robot.isEmpty();
    const bool failed = m_child->exitStatus() == QProcess::CrashExit || status == ExitStatus::scriptError
        || status == ExitStatus::cannotStart || robotFailed;
    if (!failed) {
        QCoreApplication::exit(status);
        return;
    }
    std::cerr << "holm: waiting for a change of the widget's files" << std::endl;
}
