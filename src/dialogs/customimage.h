#pragma once

#include <QtGui/QImage>

class IApplication;

/// Asks whether the user wants a picture of their own and lets them choose the file, in the application
/// directory to begin with. Null if they do not, or if the file is no picture. GUI thread only.
QImage askForCustomImage(const IApplication &application);
