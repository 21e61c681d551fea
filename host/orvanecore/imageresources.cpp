#include "imageresources.h"

#include <QtCore/QDir>

namespace {
ImageResources *currentResources = nullptr;
}

ImageResources::ImageResources(const QString &stockFolder, QObject *parent)
    : QObject(parent)
    , m_stockFolder(stockFolder)
{
    currentResources = this;
}

ImageResources::~ImageResources()
{
    if (currentResources == this)
        currentResources = nullptr;
}

ImageResources *ImageResources::instance()
{
    return currentResources;
}

void ImageResources::add(const QString &name, const QPixmap &picture)
{
    m_pictures.insert(name, picture);
    emit changed(name);
}

void ImageResources::remove(const QString &name)
{
    if (m_pictures.remove(name) > 0)
        emit changed(name);
}

QPixmap ImageResources::picture(const QString &name) const
{
    const auto found = m_pictures.constFind(name);
    if (found != m_pictures.cend())
        return *found;
    return name.isEmpty() || QDir::isAbsolutePath(name) ? QPixmap() : QPixmap(m_stockFolder + name);
}

int ImageResources::count() const
{
    return m_pictures.size();
}
