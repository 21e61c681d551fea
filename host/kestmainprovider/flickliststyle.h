#pragma once

#include "kestmainprovider_global.h"

#include <QtCore/QHash>
#include <QtCore/QMetaProperty>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <QtGui/QPixmap>

class IApplication;
class IFlickListItem;

/// The looks of a list, out of an XML file: values for the properties of items, by class, and named pictures.
///
/// @code
/// <list-style>
///   <item class="FLFileItem">
///     <color name="SelectedFillColor">#1d63b8</color>
///     <font name="Font">bold 15px Tahoma</font>
///     <number name="Height">30</number>
///   </item>
///   <picture name="DirIconPNG">../images/app/folder.png</picture>
/// </list-style>
/// @endcode
///
/// Colours are written as QColor reads them (#rgb, #rrggbb, #aarrggbb, or a name), fonts as "italic" and
/// "bold" where wanted, the height in pixels (1 to 1000), and the family; numbers are 0 to 10000. A picture's
/// path is relative to the style file; it may have 2048 pixels each way. Values for a class hold for the
/// classes derived from it, too, unless those have values of their own. GUI thread only.
class KESTMAINPROVIDER_EXPORT FlickListStyle
{
public:
    FlickListStyle();
    ~FlickListStyle();

    /// The style file of a dialog: "styles/", its name and ".xml", or ".vga.xml" on a high-density screen,
    /// below the application directory.
    static QString fileFor(const IApplication &application, const QString &dialog);

    /// Takes the place of what was loaded before. Returns false if the file is missing or malformed: it is
    /// told on standard error then, once in the life of the process for each file, and the style is empty.
    bool load(const QString &file);

    /// Sets the item's properties for which there are values. A property that the item does not have, or that
    /// is of another type, is left out; that is told once as well.
    void apply(IFlickListItem &item) const;

    /// The value for a property of items of that class, or of the nearest base class that has one; else
    /// invalid.
    QVariant value(const QMetaObject &itemClass, const QString &property) const;

    /// A picture by its name, read when it is first asked for and shared from then on. Null if there is no
    /// such name or the file cannot be read; the latter is told once.
    QPixmap picture(const QString &name) const;

private:
    using Values = QHash<QString, QVariant>;

    /// A property and a value of its own type.
    struct Setting
    {
        QMetaProperty property;
        QVariant value;
    };

    QVector<Setting> settingsOf(const QMetaObject &itemClass) const;

    QString m_file;
    QHash<QString, Values> m_values; ///< by item class
    QHash<QString, QString> m_pictureFiles; ///< by name
    mutable QHash<QString, QPixmap> m_pictures; ///< by name, those read
    mutable QHash<const QMetaObject *, QVector<Setting>> m_settings; ///< of the classes of items seen so far
};
