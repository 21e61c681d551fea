#include "registrytext.h"

#include <platform/desktop/registrydata.h>

#include <iterator>

QString toReadableText(const platform::RegistryValue &value)
{
    if (value.type == platform::RegistryType::string) {
        QString text = platform::toUtf16(value.data);
        if (text.endsWith(QChar(QChar::Null)))
            text.chop(1);
        return text;
    }
    if (const auto number = platform::numberIn(value))
        return QString::number(*number);
    return QString::fromLatin1(value.data.toHex(' '));
}

QString typeName(quint32 type)
{
    static const char *const names[] = {"REG_NONE",
                                        "REG_SZ",
                                        "REG_EXPAND_SZ",
                                        "REG_BINARY",
                                        "REG_DWORD",
                                        "REG_DWORD_BIG_ENDIAN",
                                        "REG_LINK",
                                        "REG_MULTI_SZ",
                                        "REG_RESOURCE_LIST",
                                        "REG_FULL_RESOURCE_DESCRIPTOR",
                                        "REG_RESOURCE_REQUIREMENTS_LIST",
                                        "REG_QWORD"};
    return type < std::size(names) ? QLatin1String(names[type]) : QString::number(type);
}
