#include "registryprocess.h"

#include <gmock/gmock.h>

RegistryProcess::RegistryProcess(const QString &device, int count, int values)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(REGISTRY_WRITER),
                    {device, QString::number(count), QString::number(values)});
}

int RegistryProcess::finish()
{
    constexpr int longest = 60000;
    EXPECT_TRUE(m_process.state() == QProcess::NotRunning || m_process.waitForFinished(longest));
    EXPECT_EQ(m_process.exitCode(), 0);
    return lastTold();
}

int RegistryProcess::killAfter(int numbers)
{
    QByteArray told;
    while (told.count('\n') < numbers && m_process.waitForReadyRead())
        told = m_process.peek(m_process.bytesAvailable());
    m_process.kill();
    EXPECT_TRUE(m_process.waitForFinished());
    return lastTold();
}

int RegistryProcess::lastTold()
{
    const QList<QByteArray> lines = m_process.readAllStandardOutput().split('\n');
    return lines.value(lines.size() - 2).toInt();
}
