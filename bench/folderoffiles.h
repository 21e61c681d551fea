#pragma once

#include <QtCore/QTemporaryDir>

constexpr int fileCount = 100000;

/// A folder with fileCount files, made when it is first asked for.
const QTemporaryDir &folderOfFiles();
