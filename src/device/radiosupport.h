#pragma once

/// The device's radio library, from the provider's start to its stop.
class RadioSupport
{
public:
    /// Loads the library and its entry points. A missing library is no error: there are no radios then.
    void load();

    /// Frees what load() and later calls took hold of.
    void release();
};
