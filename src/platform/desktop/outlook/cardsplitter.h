#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <vector>

namespace platform {

/// A card of a vCard file, so that the library understands all of it.
struct Card
{
    QByteArray text; ///< without pictures, sounds and keys, and without groups in front of names
    QByteArray photo; ///< the line that has it, as it stands in the file; empty if there is none
    bool hasUid = false;
};

struct CardFile
{
    std::vector<Card> cards; ///< in the file's order
    QString problem; ///< empty, or why the file cannot be read, in plain words
};

/// Takes any bytes apart, in time proportional to their number. Left out are cards within cards,
/// and what a card has behind its first 2,000 lines. Any thread.
CardFile splitCards(const QByteArray &content);

/// The bytes of a picture that a line of a card (PHOTO) holds, as Card has it. Empty if it only says where
/// one is.
QByteArray pictureIn(const QByteArray &rawLine);

} // namespace platform
