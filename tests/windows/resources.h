#pragma once

#include <functional>

/// What this process has of the system's.
struct Resources
{
    int handles = 0; ///< of the kernel: files, keys, events, threads, processes, ...
    int gdiObjects = 0; ///< bitmaps, brushes, device contexts, ..., so icons, too
    int heapBlocks = 0; ///< of memory, of whatever size

    /// Wine counts the first two for nobody (GetProcessHandleCount and GetGuiResources answer 0), but lists
    /// them.
    static Resources inUse();
};

/// Uses something so many times, after a few times for what is kept for good, and expects that no more
/// handles and GDI objects are in use at the end than before, and hardly more memory: fewer blocks than there
/// were uses, as the system itself may keep a few. What takes long is used less often, unless the environment
/// variable KESTCMD_ALL_USES is set: then it is 10,000 times, too.
void expectNoLeak(const std::function<void()> &use, int usualTimes = 10000);
