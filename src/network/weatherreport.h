#pragma once

#include <QtCore/QLatin1String>
#include <QtCore/QVariant>

#include <vector>

/// One thing that a weather feed says, by the name that scripts know it by.
struct WeatherValue
{
    QLatin1String property;
    QVariant value; ///< a text, an int or a double
};

/// What a weather feed says, each property once, in the order in which they first occur.
using WeatherReport = std::vector<WeatherValue>;
