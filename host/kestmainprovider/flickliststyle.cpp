#include "flickliststyle.h"

#include "flickliststylereader.h"
#include "iflicklistitem.h"

#include <orvanecore/iapplication.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtGui/QImageReader>

namespace {

// Far more than looks take. QXmlStreamReader's time grows with the square of a tag's attributes.
constexpr int mostBytes = 64 * 1024;
constexpr int mostPixels = 2048; ///< of a picture's width and height

/// Tells a problem unless one has been told for that subject.
void tellOnce(const QStringList &subject, const QString &problem)
{
    static QSet<QStringList> told;
    if (told.contains(subject))
        return;
    told.insert(subject);
    qWarning("%s", qPrintable(problem));
}

/// The text after the file's name that tells why it cannot be read, or nothing.
QString readFile(const QString &path, QByteArray *bytes)
{
    QFile file(path);
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) // which might never end
        return QStringLiteral("not a file");
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    *bytes = file.read(mostBytes + 1);
    return bytes->size() > mostBytes ? QStringLiteral("larger than 64 kB") : QString();
}

QPixmap readPicture(const QString &path)
{
    if (!QFileInfo(path).isFile())
        return QPixmap();
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > mostPixels || size.height() > mostPixels)
        return QPixmap();
    return QPixmap::fromImageReader(&reader);
}

QString classOf(const QMetaObject *metaObject)
{
    return QString::fromLatin1(metaObject->className());
}

} // namespace

FlickListStyle::FlickListStyle() = default;

FlickListStyle::~FlickListStyle() = default;

QString FlickListStyle::fileFor(const IApplication &application, const QString &dialog)
{
    const QLatin1String suffix(application.isVGA() ? ".vga.xml" : ".xml");
    return application.applicationPath() + QLatin1String("styles/") + dialog + suffix;
}

bool FlickListStyle::load(const QString &file)
{
    *this = FlickListStyle();
    m_file = QDir::cleanPath(QFileInfo(file).absoluteFilePath());
    QByteArray bytes;
    const QString obstacle = readFile(m_file, &bytes);
    if (!obstacle.isEmpty()) {
        tellOnce({m_file}, m_file + QLatin1String(": ") + obstacle);
        return false;
    }
    FlickListStyleReader reader(bytes);
    if (!reader.read()) {
        tellOnce({m_file}, m_file + QLatin1Char(':') + reader.problem());
        return false;
    }
    m_values = reader.values;
    m_pictureFiles = reader.pictures;
    return true;
}

void FlickListStyle::apply(IFlickListItem &item) const
{
    const QMetaObject *const itemClass = item.metaObject();
    auto settings = m_settings.constFind(itemClass);
    if (settings == m_settings.cend())
        settings = m_settings.insert(itemClass, settingsOf(*itemClass));
    for (const Setting &setting : *settings)
        setting.property.writeOnGadget(&item, setting.value);
}

QVariant FlickListStyle::value(const QMetaObject &itemClass, const QString &property) const
{
    for (const QMetaObject *base = &itemClass; base; base = base->superClass()) {
        QVariant value = m_values.value(classOf(base)).value(property);
        if (value.isValid())
            return value;
    }
    return QVariant();
}

QPixmap FlickListStyle::picture(const QString &name) const
{
    const auto known = m_pictures.constFind(name);
    if (known != m_pictures.cend())
        return *known;
    const auto file = m_pictureFiles.constFind(name);
    if (file == m_pictureFiles.cend())
        return QPixmap();
    const QString path = QDir::cleanPath(QFileInfo(m_file).dir().filePath(*file));
    const QPixmap picture = readPicture(path);
    if (picture.isNull())
        tellOnce({m_file, name}, path + QLatin1String(": not a picture that can be read"));
    m_pictures.insert(name, picture);
    return picture;
}

QVector<FlickListStyle::Setting> FlickListStyle::settingsOf(const QMetaObject &itemClass) const
{
    QSet<QString> names;
    for (const QMetaObject *base = &itemClass; base; base = base->superClass()) {
        const Values values = m_values.value(classOf(base));
        for (auto value = values.cbegin(); value != values.cend(); ++value)
            names.insert(value.key());
    }

    QVector<Setting> settings;
    for (const QString &name : qAsConst(names)) {
        const QMetaProperty property =
            itemClass.property(itemClass.indexOfProperty(name.toUtf8().constData()));
        QVariant converted = value(itemClass, name);
        if (property.isWritable() && converted.convert(property.userType()))
            settings.append({property, converted});
        else
            tellOnce({m_file, classOf(&itemClass), name},
                     QStringLiteral("%1: the rows of class \"%2\" have no property \"%3\" of that type")
                         .arg(m_file, classOf(&itemClass), name));
    }
    return settings;
}
