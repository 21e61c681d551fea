#include "configurationstore.h"

#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QSettings>
#include <QtCore/QStringList>

#include <array>

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

QVariant decoded(const QVariant &stored)
{
    // An unquoted comma makes a list of what was meant as a text.
    const QString text = stored.type() == QVariant::StringList
        ? stored.toStringList().join(QLatin1String(", "))
        : stored.toString();
    const TypeMark *mark = markOf(text);
    if (!mark)
        return text;
    QVariant value = text.mid(mark->mark.size());
    const bool isText = mark->type == QMetaType::QString;
    return isText || value.convert(mark->type) ? value : QVariant(text);
}

// QSettings joins and splits paths at slashes and takes no empty names; ours may hold any text.
QString escaped(const QString &name)
{
    if (name.isEmpty())
        return QStringLiteral("%");
    QString result = name;
    result.replace(QLatin1Char('%'), QLatin1String("%25"));
    result.replace(QLatin1Char('/'), QLatin1String("%2F"));
    result.replace(QLatin1Char('\\'), QLatin1String("%5C"));
    return result;
}

QString settingsPath(const QString &section, const QString &key)
{
    return escaped(section) + QLatin1Char('/') + escaped(key);
}

} // namespace

ConfigurationStore::ConfigurationStore(const QString &file, QObject *parent)
    : QObject(parent)
    , m_file(QFileInfo(file).absoluteFilePath())
{
    open();
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
    const QVariant stored = m_settings->value(settingsPath(section, key));
    return stored.isValid() ? decoded(stored) : defaultValue;
}

bool ConfigurationStore::setValue(const QString &section, const QString &key, const QVariant &value)
{
    m_settings->setValue(settingsPath(section, key), encoded(value));
    return save();
}

bool ConfigurationStore::remove(const QString &section, const QString &key)
{
    m_settings->remove(key.isEmpty() ? escaped(section) : settingsPath(section, key));
    return save();
}

void ConfigurationStore::open()
{
    m_settings = std::make_unique<QSettings>(m_file, QSettings::IniFormat);
    m_settings->setIniCodec("UTF-8");
    m_settings->setAtomicSyncRequired(true);
}

bool ConfigurationStore::save()
{
    m_settings->sync();
    m_reload.start();
    if (m_settings->status() != QSettings::AccessError)
        return true;
    qWarning("%s: cannot be written", qUtf8Printable(m_file));
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
    open(); // a fresh one: the status of the old one never goes back to "no error"
    const Values values = readAll();
    if (values == m_known)
        return;
    m_known = values;
    keepDamagedFile();
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
    if (m_settings->status() != QSettings::FormatError)
        return;
    // The next write leaves out what could not be read.
    const QString copy = m_file + QLatin1String(".damaged");
    QFile::remove(copy);
    QFile::copy(m_file, copy);
    qWarning("%s: some lines make no sense and are left out; the file is kept as %s", qUtf8Printable(m_file),
             qUtf8Printable(copy));
}
