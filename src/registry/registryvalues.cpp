#include "orvanecore/functionarguments.h"
#include "platform/registry.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"
#include "registry/registrypath.h"
#include "registry/valuedata.h"

#include <QtCore/QtEndian>

#include <limits>
#include <optional>

using platform::RegistryBytes;
namespace RegistryType = platform::RegistryType;

namespace {

constexpr std::uint32_t numberSize = sizeof(qint32);

/// Nothing if there is no such value, or none that a script could be given.
std::optional<QScriptValue> read(platform::RegistryKey &key, const QString &name)
{
    const std::u16string valueName = name.toStdU16String();
    const std::optional<platform::RegistryValueInfo> info = key.info(valueName);
    if (!info)
        return std::nullopt;
    if (info->type == RegistryType::dword) {
        const std::optional<RegistryBytes> data = key.read(valueName, numberSize);
        return data ? std::optional<QScriptValue>(registryNumber(*data)) : std::nullopt;
    }
    if (info->type != RegistryType::string)
        return std::nullopt;
    if (info->size == 0)
        return QScriptValue(QString());
    const std::optional<RegistryBytes> data = key.read(valueName, info->size);
    if (!data)
        return std::nullopt;
    const int terminatingNull = 1;
    return QScriptValue(registryText(*data, static_cast<int>(data->size() / 2) - terminatingNull));
}

void writeNumber(platform::RegistryKey &key, const QString &name, qint32 number)
{
    RegistryBytes data(numberSize);
    qToLittleEndian(number, data.data());
    key.write(name.toStdU16String(), RegistryType::dword, data, numberSize);
}

void writeText(platform::RegistryKey &key, const QString &name, const QString &text)
{
    // Of the terminating null only the first byte is counted; the system then completes it.
    const quint64 size = 2 * static_cast<quint64>(text.size()) + 1;
    if (size > std::numeric_limits<std::uint32_t>::max())
        return;
    RegistryBytes data(size + 3);
    qToLittleEndian<quint16>(text.utf16(), text.size(), data.data());
    key.write(name.toStdU16String(), RegistryType::string, data, static_cast<std::uint32_t>(size));
}

} // namespace

void KestCommandProvider::readReg(FunctionArguments *arguments)
{
    if (!checkArguments("readReg", *arguments,
                        {3, 3, {ArgumentType::String, ArgumentType::Any, ArgumentType::Function}}))
        return;
    const QString path = arguments->argument(0).toString();
    if (path.isEmpty())
        return;

    const RegistryPath parts = RegistryPath::split(path);
    QScriptValue result;
    if (const auto key = openRegistryKey(parts.root, parts.key).key) {
        const std::optional<QScriptValue> value = read(*key, parts.value);
        if (!value)
            return;
        result = *value;
    }
    answer(arguments->argument(1), arguments->argument(2), {result});
}

void KestCommandProvider::writeReg(FunctionArguments *arguments)
{
    if (!checkArguments("writeReg", *arguments,
                        {2, 2, {ArgumentType::String, ArgumentType::String | ArgumentType::Number}}))
        return;
    const QString path = arguments->argument(0).toString();
    if (path.isEmpty())
        return;

    const RegistryPath parts = RegistryPath::split(path);
    const auto key = openRegistryKey(parts.root, parts.key).key;
    if (!key)
        return;
    const QScriptValue value = arguments->argument(1);
    if (value.isNumber())
        writeNumber(*key, parts.value, value.toInt32());
    else
        writeText(*key, parts.value, value.toString());
}
