#pragma once

#include "orvanecore_global.h"

#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

/// Shows a picture resource by name, as large as fits, centred, its aspect ratio kept.
///
/// Follows the resource: a picture that is published, replaced or freed later is seen at once.
class ORVANECORE_EXPORT KestImage : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString resource READ resource WRITE setResource)

public:
    explicit KestImage(QWidget *parent = nullptr);

    QString resource() const;
    void setResource(const QString &name);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void reload(const QString &changedName);

    QString m_resource;
    QPixmap m_picture;
};
