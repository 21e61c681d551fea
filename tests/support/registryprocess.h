#pragma once

#include <QtCore/QProcess>

/// Another process that writes the numbers 1 to COUNT into values of the registry; see registrywriter.cpp.
class RegistryProcess
{
public:
    /// Starts it. The values are "v0" and so on in HKEY_CURRENT_USER\Software\Widgets.
    RegistryProcess(const QString &device, int count, int values);

    /// Waits for its end. Returns the last number that it told to be written.
    int finish();

    /// Kills it once it has told so many numbers. Returns the last that it told.
    int killAfter(int numbers);

private:
    int lastTold();

    QProcess m_process;
};
