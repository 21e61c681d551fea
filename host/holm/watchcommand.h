#pragma once

#include "runoptions.h"

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPair>
#include <QtCore/QProcess>
#include <QtCore/QTimer>

#include <memory>

/// Carries out "holm run --watch": runs the widget in a process of its own, and in a fresh one
/// whenever its files have changed and its scripts parse.
class WatchCommand : public QObject
{
    Q_OBJECT

public:
    /// @p childCommandLine is what follows "holm" for a single run.
    WatchCommand(const RunOptions &options, const QStringList &childCommandLine);
    ~WatchCommand() override;

    /// Returns holm's exit status: that of the run that ended by itself. After a run that ended with
    /// an error it waits for the next change instead.
    int execute();

private:
    /// Time stamps and sizes by path.
    using Files = QHash<QString, QPair<qint64, qint64>>;

    /// Whether a run itself writes @p path, so that a change there must not start the next one.
    bool isOutput(const QString &path) const;
    Files watchFiles();
    QString syntaxError() const;
    void restartIfChanged();
    void start();
    void stopChild();
    void childEnded(int status);

    const RunOptions &m_options;
    const QStringList m_commandLine;
    QFileSystemWatcher m_watcher;
    QStringList m_outputs;
    QStringList m_watched;
    QTimer m_settle;
    Files m_files;
    std::unique_ptr<QProcess> m_child;
};
