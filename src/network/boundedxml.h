#pragma once

#include <QtCore/QString>

class QByteArray;

/// A body from the network as text, decoded as it declares. It is cut at 16 million characters, and where
/// Qt's simple XML reader would take far more memory, time or stack than the body's length explains: where
/// the entities that it declares may have expanded to 16 million characters, and where a content model is
/// nested deeper than 1,000. Empty if its declarations make no sense, or declare more than 1,000 entities.
QString boundedXml(const QByteArray &body);
