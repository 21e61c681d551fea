#pragma once

#include "orvanecore_global.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtGui/QPixmap>

/// The pictures that scripts show by name. GUI thread only.
///
/// The host makes one and keeps it; KestImage finds it through instance().
class ORVANECORE_EXPORT ImageResources : public QObject
{
    Q_OBJECT

public:
    /// @p stockFolder ends with a separator; pictures below it can be shown by their relative path.
    explicit ImageResources(const QString &stockFolder, QObject *parent = nullptr);
    ~ImageResources() override;

    /// The one made last that still lives, or null.
    static ImageResources *instance();

    void add(const QString &name, const QPixmap &picture);
    void remove(const QString &name);

    /// The picture published as @p name, else the stock picture at that path, else a null pixmap.
    QPixmap picture(const QString &name) const;

    /// How many pictures are published.
    int count() const;

signals:
    void changed(const QString &name);

private:
    const QString m_stockFolder;
    QHash<QString, QPixmap> m_pictures;
};
