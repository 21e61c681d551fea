#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDate>
#include <QtCore/QString>

#include <vector>

namespace platform {

/// An item that a new device comes with.
struct SampleItem
{
    QString path; ///< of its file, in the device folder
    QByteArray content;
};

/// Contacts, some with photos, and appointments and tasks of the days around @p today. Their times are of no
/// time zone, so they are local ones wherever they are read. Needs no application object.
std::vector<SampleItem> sampleItems(const QDate &today);

} // namespace platform
