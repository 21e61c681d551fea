#include "windows/resources.h"

#include <gmock/gmock.h>
#include <windows.h>
#include <winternl.h>

#include <cstdlib>
#include <vector>

namespace {

constexpr int listOfHandles = 64; // SystemExtendedHandleInformation
constexpr NTSTATUS listIsLonger = static_cast<NTSTATUS>(0xC0000004);

struct HandleEntry
{
    void *object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT creator;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

struct GdiEntry
{
    std::uint64_t object;
    std::uint32_t owner;
    USHORT unique;
    BYTE type;
    BYTE flags;
    std::uint64_t userPointer;
};
constexpr int gdiEntryCount = 0x10000;
// Where the table of GDI objects stands in the process's environment block.
constexpr std::size_t gdiTableOffset = sizeof(void *) == 8 ? 0xf8 : 0x94;

int countHandles()
{
    std::vector<ULONG_PTR> list(1 << 16);
    NTSTATUS status = listIsLonger;
    while (status == listIsLonger) {
        list.resize(list.size() * 2);
        status = NtQuerySystemInformation(static_cast<SYSTEM_INFORMATION_CLASS>(listOfHandles), list.data(),
                                          static_cast<ULONG>(list.size() * sizeof(list[0])), nullptr);
    }
    EXPECT_EQ(status, 0);
    const auto *const entries = reinterpret_cast<const HandleEntry *>(&list[2]);
    int count = 0;
    for (ULONG_PTR i = 0; i < list[0]; ++i)
        count += entries[i].processId == GetCurrentProcessId();
    return count;
}

int countGdiObjects()
{
    const auto *const environment =
        reinterpret_cast<const char *>(NtCurrentTeb()->ProcessEnvironmentBlock) + gdiTableOffset;
    const auto *const table = *reinterpret_cast<const GdiEntry *const *>(environment);
    int count = 0;
    for (int i = 0; table && i < gdiEntryCount; ++i)
        count += table[i].type != 0;
    return count;
}

int countHeapBlocks()
{
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    EXPECT_EQ(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()), heaps.size());
    int count = 0;
    for (const HANDLE heap : heaps) {
        PROCESS_HEAP_ENTRY entry{};
        HeapLock(heap);
        while (HeapWalk(heap, &entry))
            count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
        HeapUnlock(heap);
    }
    return count;
}

} // namespace

Resources Resources::inUse()
{
    return {countHandles(), countGdiObjects(), countHeapBlocks()};
}

void expectNoLeak(const std::function<void()> &use, int usualTimes)
{
    const int times = std::getenv("KESTCMD_ALL_USES") ? 10000 : usualTimes;
    for (int i = 0; i < 10; ++i)
        use();
    const Resources before = Resources::inUse();
    for (int i = 0; i < times; ++i)
        use();
    const Resources after = Resources::inUse();
    EXPECT_GT(before.handles, 0);
    EXPECT_LE(after.handles, before.handles);
    EXPECT_GT(before.gdiObjects, 0);
    EXPECT_LE(after.gdiObjects, before.gdiObjects);
    EXPECT_GT(before.heapBlocks, 0);
    EXPECT_LT(after.heapBlocks - before.heapBlocks, times / 10);
}
