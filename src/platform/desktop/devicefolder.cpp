#include "platform/desktop/devicefolder.h"

#include "platform/desktop/outlook/sampleoutlook.h"
#include "platform/desktop/sampleprograms.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>
#include <QtCore/QStringList>

#include <algorithm>
#include <iterator>

namespace platform {

namespace {

const QLatin1String deviceFolders[] = {QLatin1String("Programs"), QLatin1String("Program Files"),
                                       QLatin1String("Windows"), QLatin1String("My Documents")};

bool writeFile(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly)
        && file.write(content) == content.size() && file.commit();
}

bool writeSample(const QString &folder, const SampleFile &sample)
{
    const QString path = folder + QLatin1Char('/') + sample.path;
    return writeFile(path, sample.content)
        && (!sample.isExecutable
            || QFile::setPermissions(path, QFile::permissions(path) | QFile::ExeOwner | QFile::ExeUser));
}

QString withoutLetterCase(const QDir &folder, const QString &name)
{
    if (QFileInfo::exists(folder.filePath(name)))
        return name;
    const QStringList entries = folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    for (const QString &entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return name;
}

} // namespace

const char *const DeviceFolder::environmentVariable = "HOLM_DEVICE";

DeviceFolder DeviceFolder::current()
{
    const QString named = qEnvironmentVariable(environmentVariable);
    return DeviceFolder(!named.isEmpty()
                            ? named
                            : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                                + QLatin1String("/holm/device"));
}

DeviceFolder::DeviceFolder(const QString &path)
    : m_path(QDir::cleanPath(QDir(path).absolutePath()))
{
}

QString DeviceFolder::path() const
{
    return m_path;
}

QString DeviceFolder::create() const
{
    const bool isNew = !QFileInfo::exists(m_path) || QDir(m_path).isEmpty();
    if (!QDir().mkpath(m_path))
        return m_path + QLatin1String(": the device folder cannot be made");
    if (!QFileInfo(m_path).isWritable())
        return m_path + QLatin1String(": the device folder cannot be written to");
    for (const QLatin1String folder : deviceFolders) {
        if (!QDir(m_path).mkpath(folder))
            return m_path + QLatin1Char('/') + folder + QLatin1String(": the folder cannot be made");
    }
    if (!isNew)
        return QString();
    for (const SampleFile &sample : samplePrograms()) {
        if (!writeSample(m_path, sample))
            return m_path + QLatin1Char('/') + sample.path
                + QLatin1String(": the sample file cannot be written");
    }
    // Where a folder of these is missing, the store tells so when it is asked for.
    for (const SampleItem &item : sampleItems(QDate::currentDate()))
        writeFile(m_path + QLatin1Char('/') + item.path, item.content);
    return QString();
}

QString DeviceFolder::localPath(const QString &devicePath) const
{
    QString path = devicePath;
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (!path.startsWith(QLatin1Char('/')))
        return path;
    QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    const auto isFirst = [&parts](QLatin1String folder) {
        return !parts.isEmpty() && parts.first().compare(folder, Qt::CaseInsensitive) == 0;
    };
    if (std::none_of(std::begin(deviceFolders), std::end(deviceFolders), isFirst))
        return path;

    QString found = m_path;
    for (const QString &part : qAsConst(parts))
        found += QLatin1Char('/') + withoutLetterCase(QDir(found), part);
    return path.endsWith(QLatin1Char('/')) ? found + QLatin1Char('/') : found;
}

} // namespace platform
