#include "configurationstore.h"

#include "configurationfile.h"

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QSettings>

#include <array>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

struct TypeMark
{
    QMetaType::Type type;
    QLatin1String mark;
};

const std::array<TypeMark, 4> typeMarks{{{QMetaType::Double, QLatin1String("number:")},
                                         {QMetaType::Int, QLatin1String("int:")},
                                         {QMetaType::Bool, QLatin1String("bool:")},
                                         {QMetaType::QString, QLatin1String("text:")}}};

const TypeMark *markOf(const QString &stored)
{
    for (const TypeMark &candidate : typeMarks) {
        if (stored.startsWith(candidate.mark))
            return &candidate;
    }
    return nullptr;
}

QString encoded(const QVariant &value)
{
    const auto type = static_cast<QMetaType::Type>(value.type());
    if (type == QMetaType::QString)
        return markOf(value.toString()) ? typeMarks.back().mark + value.toString() : value.toString();
    if (type == QMetaType::Double)
        return typeMarks.front().mark
            + QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    for (const TypeMark &candidate : typeMarks) {
        if (type == candidate.type)
            return candidate.mark + value.toString();
    }
    return value.toString();
}

QVariant decoded(const QString &text)
{
    const TypeMark *mark = markOf(text);
    if (!mark)
        return text;
    QVariant value = text.mid(mark->mark.size());
    const bool isText = mark->type == QMetaType::QString;
    return isText || value.convert(mark->type) ? value : QVariant(text);
}

/// Keeps other processes from saving. Unlike a lock file, it goes when its holder is killed (flock(2)).
class SaveLock
{
public:
    explicit SaveLock(const QString &folder)
        : m_folder(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        m_isHeld = m_folder >= 0 && flock(m_folder, LOCK_EX) == 0;
    }
    ~SaveLock()
    {
        if (m_folder >= 0)
            close(m_folder);
    }
    Q_DISABLE_COPY(SaveLock)

    bool isHeld() const { return m_isHeld; }

private:
    const int m_folder;
    bool m_isHeld = false;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// QSettings does the locking, the merging with what other processes wrote, and the replacing.
QSettings::Format format()
{
    const auto read = [](QIODevice &device, QSettings::SettingsMap &values) {
        values = ConfigurationFile::parse(device.readAll()).values;
        return true;
    };
    const auto write = [](QIODevice &device, const QSettings::SettingsMap &values) {
        const QByteArray bytes = ConfigurationFile::toBytes(values);
        return device.write(bytes) == bytes.size();
    };
    static const QSettings::Format registered =
        QSettings::registerFormat(QStringLiteral("ini"), read, write, Qt::CaseSensitive);
    return registered;
}

} // namespace

ConfigurationStore::ConfigurationStore(const QString &file, QObject *parent)
    : QObject(parent)
    , m_file(QFileInfo(file).absoluteFilePath())
{
    m_settings = std::make_unique<QSettings>(m_file, format());
    m_known = readAll();
    keepDamagedFile();

    m_reload.setSingleShot(true);
    connect(&m_reload, &QTimer::timeout, this, &ConfigurationStore::reload);
    const auto scheduleReload = [this] { m_reload.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, scheduleReload);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, scheduleReload);
    m_watcher.addPath(QFileInfo(m_file).absolutePath());
    watchFile();
}

ConfigurationStore::~ConfigurationStore() = default;

QVariant ConfigurationStore::value(const QString &section, const QString &key,
                                   const QVariant &defaultValue) const
{
    const QVariant stored = m_settings->value(ConfigurationFile::path(section, key));
    return stored.isValid() ? decoded(stored.toString()) : defaultValue;
}

bool ConfigurationStore::setValue(const QString &section, const QString &key, const QVariant &value)
{
    m_settings->setValue(ConfigurationFile::path(section, key), encoded(value));
    return save();
}

bool ConfigurationStore::remove(const QString &section, const QString &key)
{
    m_settings->remove(key.isEmpty() ? ConfigurationFile::path(section)
                                     : ConfigurationFile::path(section, key));
    return save();
}

bool ConfigurationStore::save()
{
    const SaveLock lock(QFileInfo(m_file).absolutePath());
    // One that is there now was left by a killed process; QSettings would wait half a minute for it.
    if (lock.isHeld())
        QFile::remove(m_file + QLatin1String(".lock"));
    m_settings->sync();
    m_reload.start();
    if (m_settings->status() == QSettings::NoError)
        return true;
    qWarning("%s: cannot be written", qUtf8Printable(m_file));
    // The status of a QSettings never goes back to "no error".
    m_settings = std::make_unique<QSettings>(m_file, format());
    return false;
}

void ConfigurationStore::watchFile()
{
    // A file that was replaced drops out of the watcher.
    if (!m_watcher.files().contains(m_file) && QFile::exists(m_file))
        m_watcher.addPath(m_file);
}

void ConfigurationStore::reload()
{
    watchFile();
    m_settings->sync();
    keepDamagedFile();
    const Values values = readAll();
    if (values == m_known)
        return;
    m_known = values;
    emit changed();
}

ConfigurationStore::Values ConfigurationStore::readAll() const
{
    Values values;
    const QStringList keys = m_settings->allKeys();
    for (const QString &key : keys)
        values.insert(key, m_settings->value(key));
    return values;
}

void ConfigurationStore::keepDamagedFile() const
{
    const QByteArray content = contentOf(m_file);
    const QString copy = m_file + QLatin1String(".damaged");
    if (!ConfigurationFile::parse(content).isDamaged || contentOf(copy) == content)
        return;
    // The next write leaves out what could not be read.
    QFile::remove(copy);
    QFile::copy(m_file, copy);
    qWarning("%s: some lines make no sense and are left out; the file is kept as %s", qUtf8Printable(m_file),
             qUtf8Printable(copy));
}
