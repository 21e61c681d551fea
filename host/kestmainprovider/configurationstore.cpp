#include "configurationstore.h"

#include "configurationfile.h"
#include "savelock.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QSaveFile>

#include <array>
#include <optional>

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

/// Empty if there is no such file, nothing if it cannot be read.
std::optional<QByteArray> contentOf(const QString &path)
{
    QFile file(path);
    if (!file.exists())
        return QByteArray();
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

} // namespace

ConfigurationStore::ConfigurationStore(const QString &file, QObject *parent)
    : QObject(parent)
    , m_file(QFileInfo(file).absoluteFilePath())
{
    read();
    m_announced = m_values;

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
    const auto found = m_values.constFind(ConfigurationFile::path(section, key));
    return found == m_values.cend() ? defaultValue : decoded(*found);
}

bool ConfigurationStore::setValue(const QString &section, const QString &key, const QVariant &value)
{
    return change([&] { m_values.insert(ConfigurationFile::path(section, key), encoded(value)); });
}

bool ConfigurationStore::remove(const QString &section, const QString &key)
{
    return change([&] {
        if (!key.isEmpty()) {
            m_values.remove(ConfigurationFile::path(section, key));
            return;
        }
        const QString prefix = ConfigurationFile::prefix(section);
        auto value = m_values.lowerBound(prefix);
        while (value != m_values.end() && value.key().startsWith(prefix))
            value = m_values.erase(value);
    });
}

bool ConfigurationStore::change(const std::function<void()> &apply)
{
    const QString folder = QFileInfo(m_file).absolutePath();
    QDir().mkpath(folder);
    const SaveLock lock(folder);
    const bool isRead = read(); // what others have written meanwhile stays
    apply();
    m_reload.start();
    if (isRead && write())
        return true;
    qWarning("%s: cannot be %s", qUtf8Printable(m_file), isRead ? "written" : "read, so it is not written");
    return false;
}

bool ConfigurationStore::read()
{
    const std::optional<QByteArray> bytes = contentOf(m_file);
    if (!bytes)
        return false;
    const ConfigurationFile::Content content = ConfigurationFile::parse(*bytes);
    if (content.isDamaged)
        keepDamagedFile(*bytes);
    m_values = content.values;
    return true;
}

bool ConfigurationStore::write() const
{
    QSaveFile file(m_file);
    return file.open(QIODevice::WriteOnly) && file.write(ConfigurationFile::toBytes(m_values)) >= 0
        && file.commit();
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
    read();
    if (m_values == m_announced)
        return;
    m_announced = m_values;
    emit changed();
}

void ConfigurationStore::keepDamagedFile(const QByteArray &bytes) const
{
    const QString name = m_file + QLatin1String(".damaged");
    if (contentOf(name) == bytes)
        return;
    // The next write leaves out what makes no sense.
    QSaveFile copy(name);
    const bool isKept = copy.open(QIODevice::WriteOnly) && copy.write(bytes) >= 0 && copy.commit();
    qWarning("%s: some lines make no sense and are left out; the file %s kept as %s", qUtf8Printable(m_file),
             isKept ? "is" : "cannot be", qUtf8Printable(name));
}
