#pragma once

#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

/// What a run of holm gave.
struct HolmResult
{
    int status = -1;
    QString output;
    QString errors;
};

/// A folder for widgets and a device, to run the real holm with. Paths in output are relative to it.
class HolmProcess
{
public:
    HolmProcess();

    /// Makes a file in the folder.
    void write(const QString &name, const QByteArray &content) const;
    QString path(const QString &name) const;

    /// Runs "holm run" on the folder's device and waits for its end.
    HolmResult run(const QStringList &arguments) const;

    /// Runs holm with a whole command line.
    HolmResult command(const QStringList &commandLine) const;

    /// A process set up for "holm run", not yet started.
    std::unique_ptr<QProcess> prepare(const QStringList &arguments) const;

    /// The same for a whole command line.
    std::unique_ptr<QProcess> prepareCommand(const QStringList &commandLine) const;

private:
    QTemporaryDir m_dir;
};
