#pragma once

class QByteArray;
class QXmlContentHandler;

/// The stack that a thread needs for readXml(), in bytes: Qt's reader calls itself for every nested element.
constexpr unsigned int xmlReadingStack = 64U << 20U;

/// Reads a body from the network with Qt's simple XML reader, up to its end or to what is not well-formed.
///
/// Reading ends early, too, at elements nested deeper than 150,000, and where boundedXml() cuts a hostile
/// body. Names are reported as they are written, with their prefixes; namespaces are not resolved. Any thread
/// that has the stack for it.
void readXml(const QByteArray &body, QXmlContentHandler &handler);
