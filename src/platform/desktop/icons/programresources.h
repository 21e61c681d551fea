#pragma once

#include "platform/desktop/icons/bytereader.h"

#include <QtCore/QVector>

namespace platform {

/// The icons among the resources of a program or library for Windows (PE), of 32 or 64 bits and for any
/// processor. What is damaged is missing.
class ProgramResources
{
public:
    /// Whether @p file begins as a program does; then it is nothing else.
    static bool isProgram(const ByteReader &file);

    /// Reads from @p file at any time while this lives.
    explicit ProgramResources(const ByteReader &file);

    /// The directory of an icon's pictures. A negative @p index is an identifier, made positive; else it
    /// counts the icons as they stand in the file: those with names first, then those with identifiers.
    QByteArray iconGroup(int index) const;

    /// One of an icon's pictures.
    QByteArray icon(quint32 identifier) const;

private:
    struct Section
    {
        quint32 address;
        quint32 offset;
        quint32 size; ///< in the file
    };
    struct Entry
    {
        quint32 name; ///< an identifier, if it has no name
        quint32 place;
    };
    using Directory = QVector<Entry>;

    QByteArray readMemory(quint64 address, quint64 count) const;
    Directory directory(quint32 place) const;
    Directory resourcesOf(const Directory &types, quint32 type) const;
    QByteArray content(const Entry &resource) const;
    static const Entry *find(const Directory &directory, quint32 identifier);

    const ByteReader m_file;
    QVector<Section> m_sections;
    quint64 m_root = 0; ///< address of the directory of types
    Directory m_groups;
    Directory m_icons;
};

} // namespace platform
