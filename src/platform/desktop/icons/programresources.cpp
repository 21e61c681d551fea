#include "platform/desktop/icons/programresources.h"

#include <algorithm>

namespace platform {

namespace {

constexpr quint32 iconType = 3;
constexpr quint32 iconGroupType = 14;
/// In an entry's place: below it is one more directory. In its name: it is a text.
constexpr quint32 highBit = 0x80000000;

/// Where the parts of a program stand, and what in them is of use.
namespace dosHeader {
constexpr int size = 64;
constexpr int peHeaderOffset = 60;
} // namespace dosHeader

namespace peHeader {
constexpr int size = 24;
constexpr int sectionCount = 6;
constexpr int optionalHeaderSize = 20;
} // namespace peHeader

namespace sectionHeader {
constexpr int size = 40;
constexpr int address = 12;
constexpr int fileSize = 16;
constexpr int fileOffset = 20;
} // namespace sectionHeader

namespace resourceDirectory {
constexpr int size = 16;
constexpr int namedCount = 12;
constexpr int identifiedCount = 14;
constexpr int entrySize = 8;
} // namespace resourceDirectory

/// Address of the resources; 0 if there are none.
quint32 resourceAddress(const QByteArray &optionalHeader)
{
    constexpr quint16 magic32 = 0x10b;
    constexpr quint16 magic64 = 0x20b;
    constexpr quint32 resourceTable = 2;
    constexpr int tableSize = 8;
    if (optionalHeader.size() < 2)
        return 0;
    const auto magic = numberAt<quint16>(optionalHeader, 0);
    const int tables = magic == magic32 ? 96 : magic == magic64 ? 112 : optionalHeader.size();
    const int entry = tables + static_cast<int>(resourceTable) * tableSize;
    if (entry + tableSize > optionalHeader.size()
        || numberAt<quint32>(optionalHeader, tables - 4) <= resourceTable)
        return 0;
    return numberAt<quint32>(optionalHeader, entry);
}

} // namespace

bool ProgramResources::isProgram(const ByteReader &file)
{
    return file.read(0, 2) == "MZ";
}

ProgramResources::ProgramResources(const ByteReader &file)
    : m_file(file)
{
    const QByteArray dos = file.read(0, dosHeader::size);
    if (dos.isEmpty())
        return;
    const quint64 start = numberAt<quint32>(dos, dosHeader::peHeaderOffset);
    const QByteArray header = file.read(start, peHeader::size);
    if (!header.startsWith(QByteArray("PE\0", 4)))
        return;
    const auto optionalSize = numberAt<quint16>(header, peHeader::optionalHeaderSize);
    m_root = resourceAddress(file.read(start + peHeader::size, optionalSize));
    if (m_root == 0)
        return;

    const auto sectionCount = numberAt<quint16>(header, peHeader::sectionCount);
    const QByteArray sections =
        file.read(start + peHeader::size + optionalSize, sectionCount * quint64(sectionHeader::size));
    for (int at = 0; at < sections.size(); at += sectionHeader::size)
        m_sections.append({numberAt<quint32>(sections, at + sectionHeader::address),
                           numberAt<quint32>(sections, at + sectionHeader::fileOffset),
                           numberAt<quint32>(sections, at + sectionHeader::fileSize)});

    const Directory types = directory(highBit);
    m_groups = resourcesOf(types, iconGroupType);
    m_icons = resourcesOf(types, iconType);
}

QByteArray ProgramResources::readMemory(quint64 address, quint64 count) const
{
    const auto holds = [=](const Section &section) {
        return address >= section.address && address - section.address <= section.size
            && count <= section.size - (address - section.address);
    };
    const auto section = std::find_if(m_sections.cbegin(), m_sections.cend(), holds);
    return section == m_sections.cend() ? QByteArray()
                                        : m_file.read(section->offset + (address - section->address), count);
}

ProgramResources::Directory ProgramResources::directory(quint32 place) const
{
    if (!(place & highBit))
        return Directory();
    const quint64 start = m_root + (place & ~highBit);
    const QByteArray header = readMemory(start, resourceDirectory::size);
    if (header.isEmpty())
        return Directory();
    const quint64 count = quint64(numberAt<quint16>(header, resourceDirectory::namedCount))
        + numberAt<quint16>(header, resourceDirectory::identifiedCount);
    const QByteArray bytes =
        readMemory(start + resourceDirectory::size, count * resourceDirectory::entrySize);
    Directory entries;
    entries.reserve(bytes.size() / resourceDirectory::entrySize);
    for (int at = 0; at < bytes.size(); at += resourceDirectory::entrySize)
        entries.append({numberAt<quint32>(bytes, at), numberAt<quint32>(bytes, at + 4)});
    return entries;
}

const ProgramResources::Entry *ProgramResources::find(const Directory &directory, quint32 identifier)
{
    const auto found = std::find_if(directory.cbegin(), directory.cend(), [=](const Entry &entry) {
        return entry.name == identifier && !(identifier & highBit);
    });
    return found == directory.cend() ? nullptr : &*found;
}

ProgramResources::Directory ProgramResources::resourcesOf(const Directory &types, quint32 type) const
{
    const Entry *entry = find(types, type);
    return entry ? directory(entry->place) : Directory();
}

/// In the first of the languages it is there in.
QByteArray ProgramResources::content(const Entry &resource) const
{
    const Directory languages = directory(resource.place);
    if (languages.isEmpty() || languages.first().place & highBit)
        return QByteArray();
    constexpr int dataEntrySize = 16;
    const QByteArray entry = readMemory(m_root + languages.first().place, dataEntrySize);
    return entry.isEmpty() ? QByteArray()
                           : readMemory(numberAt<quint32>(entry, 0), numberAt<quint32>(entry, 4));
}

QByteArray ProgramResources::iconGroup(int index) const
{
    if (index >= 0)
        return index < m_groups.size() ? content(m_groups.at(index)) : QByteArray();
    const Entry *group = find(m_groups, 0 - static_cast<quint32>(index));
    return group ? content(*group) : QByteArray();
}

QByteArray ProgramResources::icon(quint32 identifier) const
{
    const Entry *icon = find(m_icons, identifier);
    return icon ? content(*icon) : QByteArray();
}

} // namespace platform
