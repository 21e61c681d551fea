#pragma once

#include <QtCore/QString>

/// Keeps other processes from saving to a folder, during its life. Unlike a lock file, it goes when its
/// holder is killed. If it cannot be had, nobody is kept from anything.
class SaveLock
{
public:
    /// Waits for the others. @p folder exists.
    explicit SaveLock(const QString &folder);
    ~SaveLock();
    Q_DISABLE_COPY(SaveLock)

private:
    const qintptr m_handle;
};
