#include "holmprocess.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <gmock/gmock.h>

HolmProcess::HolmProcess() = default;

void HolmProcess::write(const QString &name, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QString HolmProcess::path(const QString &name) const
{
    return m_dir.filePath(name);
}

HolmResult HolmProcess::run(const QStringList &arguments) const
{
    return command(QStringList(QStringLiteral("run")) + arguments);
}

HolmResult HolmProcess::command(const QStringList &commandLine) const
{
    const std::unique_ptr<QProcess> process = prepareCommand(commandLine);
    process->start();
    EXPECT_TRUE(process->waitForFinished()) << "holm does not end";
    return {process->exitStatus() == QProcess::NormalExit ? process->exitCode() : -1,
            QString::fromUtf8(process->readAllStandardOutput()),
            QString::fromUtf8(process->readAllStandardError())};
}

std::unique_ptr<QProcess> HolmProcess::prepare(const QStringList &arguments) const
{
    return prepareCommand(QStringList(QStringLiteral("run")) + arguments);
}

std::unique_ptr<QProcess> HolmProcess::prepareCommand(const QStringList &commandLine) const
{
    auto process = std::make_unique<QProcess>();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOLM_DEVICE"), path(QStringLiteral("device")));
    environment.insert(QStringLiteral("LANG"), QStringLiteral("C"));
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(m_dir.path());
    process->setProgram(QStringLiteral(HOLM_PROGRAM));
    process->setArguments(commandLine);
    return process;
}
