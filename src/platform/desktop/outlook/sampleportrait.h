#pragma once

#include <QtCore/QByteArray>

namespace platform {

/// The colours of a small portrait, as 0xRRGGBB.
struct PortraitColours
{
    unsigned background;
    unsigned clothes;
    unsigned skin;
    unsigned hair;
    bool isHairLong;
};

/// Draws head and shoulders of somebody, 120 pixels wide and high, as a PNG file. Needs no application
/// object.
QByteArray samplePortrait(const PortraitColours &colours);

} // namespace platform
