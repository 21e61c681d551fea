#include "savelock.h"

#include <QtCore/QCryptographicHash>

#include <windows.h>

namespace {

/// Mutexes share one space of names, where a separator means something else.
QString mutexName(const QString &folder)
{
    const QByteArray path = folder.toLower().toUtf8();
    return QStringLiteral("kestmainprovider-")
        + QString::fromLatin1(QCryptographicHash::hash(path, QCryptographicHash::Sha1).toHex());
}

} // namespace

SaveLock::SaveLock(const QString &folder)
    : m_handle(reinterpret_cast<qintptr>(
        CreateMutexW(nullptr, FALSE, reinterpret_cast<const wchar_t *>(mutexName(folder).utf16()))))
{
    // That of a holder that was killed counts as abandoned, and is ours all the same.
    if (m_handle != 0)
        WaitForSingleObject(reinterpret_cast<HANDLE>(m_handle), INFINITE);
}

SaveLock::~SaveLock()
{
    if (m_handle == 0)
        return;
    ReleaseMutex(reinterpret_cast<HANDLE>(m_handle));
    CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}
