#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace platform {

/// A file that a new device comes with.
struct SampleFile
{
    QString path; ///< in the device folder
    QByteArray content;
    bool isExecutable = false;
};

/// Programs, the documents they open, the menu of shortcuts to them and the library with its icons. Needs no
/// application object.
std::vector<SampleFile> samplePrograms();

} // namespace platform
