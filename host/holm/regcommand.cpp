#include "regcommand.h"

#include "commandoptions.h"
#include "exitstatus.h"
#include "registrytext.h"

#include <platform/desktop/regfile.h>
#include <platform/desktop/registrydata.h>
#include <platform/desktop/terminaltext.h>

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <iostream>
#include <iterator>
#include <limits>

namespace {

using platform::RegistryKeyPath;
using platform::RegistryStore;
using platform::RegistryValue;

const DeviceCommand &command()
{
    static const DeviceCommand description{
        QStringLiteral("reg"),
        QStringLiteral(
            "Usage: holm reg [--device DIR] ACTION ...\n"
            "\n"
            "Shows and changes the registry of the simulated handheld.\n"
            "\n"
            "  holm reg get PATH              print a value\n"
            "  holm reg set PATH TEXT         write a text (REG_SZ); makes missing keys\n"
            "  holm reg set --dword PATH N    write a number (REG_DWORD), decimal or 0x...\n"
            "  holm reg delete PATH           delete a value\n"
            "  holm reg delete --key KEY      delete a key with all that is below it\n"
            "  holm reg list KEY              list the keys directly below a key, and its values\n"
            "  holm reg import FILE           take in a registry file (.reg): all of it, or nothing\n"
            "  holm reg export [--utf16] KEY  print a key with all that is below it as a registry file\n"
            "\n"
            "A KEY is a root key (HKLM, HKCU, HKCR, HKUS or their long names) and names behind\n"
            "it: 'HKCU\\Software\\Widgets'. A PATH is a key, a backslash and the name of a value;\n"
            "without a name it is the key's default value. Letter case does not matter.\n"
            "A text that begins with \"-\" goes behind \"--\".\n"
            "\n"
            "The status is 0, 1 if it could not be done, or 2 for a wrong command line.\n"
            "\n"),
        3,
        {QStringLiteral("dword"), QStringLiteral("key"), QStringLiteral("utf16")}};
    return description;
}

/// What an action is to be done with.
struct Request
{
    RegistryKeyPath key;
    QString valueName; ///< empty: the default value
    QString argument; ///< what else was given: a new value, or the name of a file
};

int tellNoSuchKey(const RegistryStore &store, const RegistryKeyPath &key)
{
    const QString problem = store.problem();
    return tellFailure(problem.isEmpty() ? toString(key) + QLatin1String(": there is no such key") : problem);
}

// Where a key has the value's name, the user may have meant that.
int tellNoSuchValue(RegistryStore &store, const Request &request, const char *ifKey)
{
    if (!store.problem().isEmpty())
        return tellFailure(store.problem());
    const auto sameName =
        platform::parseKeyPath(toString(request.key) + QLatin1Char('\\') + request.valueName);
    if (!request.valueName.isEmpty() && sameName && store.find(sameName->root, sameName->path))
        return tellFailure(toString(*sameName) + QLatin1String(": this is a key; ") + QLatin1String(ifKey));
    const QString value = request.valueName.isEmpty() ? QStringLiteral("default value")
                                                      : QLatin1String("value ") + inQuotes(request.valueName);
    return tellFailure(toString(request.key) + QLatin1String(": the key has no ") + value);
}

int tellStatus(const RegistryStore &store, bool isDone)
{
    return isDone ? ExitStatus::ok : tellFailure(store.problem());
}

int get(RegistryStore &store, const Request &request)
{
    const auto key = store.find(request.key.root, request.key.path);
    if (!key)
        return tellNoSuchKey(store, request.key);
    const auto value = store.value(*key, request.valueName);
    if (!value)
        return tellNoSuchValue(store, request, "holm reg list shows what is in it");
    std::cout << toReadableText(*value).toStdString() << std::endl;
    return ExitStatus::ok;
}

int set(RegistryStore &store, const RegistryKeyPath &path, const RegistryValue &value)
{
    const QString problem = platform::problemWithKeyPath(path.path);
    if (!problem.isEmpty())
        return tellFailure(toString(path) + QLatin1String(": ") + problem);
    return tellStatus(store, store.inTransaction([&] {
        const auto key = store.findOrMake(path.root, path.path);
        return key && store.setValue(*key, value);
    }));
}

int setText(RegistryStore &store, const Request &request)
{
    return set(store, request.key, platform::textValue(request.valueName, request.argument));
}

std::optional<quint32> parseNumber(const QString &text)
{
    static const QRegularExpression form(QStringLiteral("\\A(0[xX][0-9a-fA-F]+|-?[0-9]+)\\z"));
    if (!form.match(text).hasMatch())
        return std::nullopt;
    const bool isHexadecimal = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    bool isRead = false;
    const qint64 number = text.toLongLong(&isRead, isHexadecimal ? 16 : 10);
    if (!isRead || number < std::numeric_limits<qint32>::min()
        || number > std::numeric_limits<quint32>::max())
        return std::nullopt;
    return static_cast<quint32>(number);
}

int setNumber(RegistryStore &store, const Request &request)
{
    const auto number = parseNumber(request.argument);
    if (!number)
        return tellMisuse(
            command(),
            inQuotes(request.argument)
                + QLatin1String(" is no number from -2147483648 to 4294967295, decimal or 0x..."));
    return set(store, request.key, platform::numberValue(request.valueName, *number));
}

int deleteValue(RegistryStore &store, const Request &request)
{
    const auto key = store.find(request.key.root, request.key.path);
    if (!key)
        return tellNoSuchKey(store, request.key);
    if (store.removeValue(*key, request.valueName))
        return ExitStatus::ok;
    return tellNoSuchValue(store, request, "--key deletes it with all that is below it");
}

int deleteKey(RegistryStore &store, const Request &request)
{
    if (request.key.path.isEmpty())
        return tellFailure(toString(request.key) + QLatin1String(": a root key cannot be deleted"));
    const auto key = store.find(request.key.root, request.key.path);
    return key ? tellStatus(store, store.removeKey(*key)) : tellNoSuchKey(store, request.key);
}

QString toLine(const RegistryValue &value)
{
    const QString gap(4, QLatin1Char(' '));
    const QString name = value.name.isEmpty() ? QStringLiteral("(Default)") : platform::onOneLine(value.name);
    return gap + name + gap + typeName(value.type) + gap + platform::onOneLine(toReadableText(value));
}

int list(RegistryStore &store, const Request &request)
{
    QString lines;
    const bool isDone = store.inSnapshot([&] {
        const auto key = store.find(request.key.root, request.key.path);
        if (!key)
            return false;
        const QString name = toString(platform::storedSpelling(store, request.key)) + QLatin1Char('\\');
        const QStringList subkeys = store.subkeys(*key);
        if (!store.problem().isEmpty())
            return false;
        for (const QString &subkey : subkeys)
            lines += platform::onOneLine(name + subkey) + QLatin1Char('\n');
        const QList<RegistryValue> values = store.values(*key);
        for (const RegistryValue &value : values)
            lines += toLine(value) + QLatin1Char('\n');
        return store.problem().isEmpty();
    });
    if (!isDone)
        return tellNoSuchKey(store, request.key);
    std::cout << lines.toStdString() << std::flush;
    return ExitStatus::ok;
}

int importFile(RegistryStore &store, const Request &request)
{
    constexpr qint64 largestFile = 0x20000000;
    const QString &name = request.argument;
    QFile file(name);
    QByteArray bytes;
    if (file.open(QIODevice::ReadOnly))
        bytes = file.read(largestFile + 1);
    if (file.error() != QFile::NoError)
        return tellFailure(name + QLatin1String(": the file cannot be read: ") + file.errorString());
    if (bytes.size() > largestFile)
        return tellFailure(name + QLatin1String(": the file is larger than 512 MB"));

    const platform::RegFileContent content = platform::parseRegFile(bytes);
    if (content.error.isEmpty())
        return tellStatus(store, applyEdits(store, content.edits));
    std::cerr << name.toStdString() << ':' << content.errorLine << ": " << content.error.toStdString()
              << std::endl;
    return ExitStatus::failed;
}

int printFile(RegistryStore &store, const RegistryKeyPath &key, platform::RegFileEncoding encoding)
{
    const auto edits = exportKey(store, key);
    if (!edits)
        return tellNoSuchKey(store, key);
    toRegFile(*edits, encoding,
              [](const QByteArray &bytes) { std::cout.write(bytes.constData(), bytes.size()); });
    std::cout.flush();
    return std::cout ? ExitStatus::ok : tellFailure(QStringLiteral("the output cannot be written"));
}

int exportUtf8(RegistryStore &store, const Request &request)
{
    return printFile(store, request.key, platform::RegFileEncoding::Utf8);
}

int exportUtf16(RegistryStore &store, const Request &request)
{
    return printFile(store, request.key, platform::RegFileEncoding::Utf16);
}

/// What "holm reg" can do.
struct Action
{
    enum class Target {
        Value,
        Key,
        File,
    };

    QLatin1String name;
    QLatin1String flag; ///< has to be given; empty: none
    QLatin1String arguments; ///< as the help text calls them, the target first
    Target target;
    int (*execute)(RegistryStore &store, const Request &request);
};

const Action actions[] = {
    {QLatin1String("get"), QLatin1String(""), QLatin1String("PATH"), Action::Target::Value, get},
    {QLatin1String("set"), QLatin1String(""), QLatin1String("PATH TEXT"), Action::Target::Value, setText},
    {QLatin1String("set"), QLatin1String("dword"), QLatin1String("PATH N"), Action::Target::Value, setNumber},
    {QLatin1String("delete"), QLatin1String(""), QLatin1String("PATH"), Action::Target::Value, deleteValue},
    {QLatin1String("delete"), QLatin1String("key"), QLatin1String("KEY"), Action::Target::Key, deleteKey},
    {QLatin1String("list"), QLatin1String(""), QLatin1String("KEY"), Action::Target::Key, list},
    {QLatin1String("import"), QLatin1String(""), QLatin1String("FILE"), Action::Target::File, importFile},
    {QLatin1String("export"), QLatin1String(""), QLatin1String("KEY"), Action::Target::Key, exportUtf8},
    {QLatin1String("export"), QLatin1String("utf16"), QLatin1String("KEY"), Action::Target::Key, exportUtf16},
};

// Returns what is wrong with the arguments, or an empty text.
QString readRequest(const Action &action, const QStringList &arguments, Request &request)
{
    const QString wanted = action.arguments;
    if (arguments.size() != wanted.count(QLatin1Char(' ')) + 1)
        return action.name + QLatin1String(" takes ") + wanted;
    request.argument = arguments.last();
    QString key = arguments.first();
    if (action.target == Action::Target::File)
        return QString();
    if (action.target == Action::Target::Value) {
        const int separator = key.lastIndexOf(QLatin1Char('\\'));
        if (separator < 0)
            return inQuotes(key) + QLatin1String(" names no value: a PATH is a key, a backslash and a name");
        request.valueName = key.mid(separator + 1);
        key.truncate(separator);
    }
    const auto path = platform::parseKeyPath(key);
    if (!path)
        return inQuotes(key) + QLatin1String(" does not begin with a root key, HKLM, HKCU, HKCR or HKUS");
    request.key = *path;
    return QString();
}

int execute(const CommandOptions &options)
{
    const QString name = options.arguments.value(0);
    const QString flag = options.flags.join(QLatin1String(" --"));
    const auto isNamed = [&name](const Action &action) { return action.name == name; };
    const auto isMeant = [&](const Action &action) { return isNamed(action) && action.flag == flag; };
    if (name.isEmpty())
        return tellMisuse(command(), QStringLiteral("no action given"));
    if (std::none_of(std::begin(actions), std::end(actions), isNamed))
        return tellMisuse(command(), QLatin1String("there is no action ") + inQuotes(name));
    const auto *action = std::find_if(std::begin(actions), std::end(actions), isMeant);
    if (action == std::end(actions))
        return tellMisuse(command(), QLatin1String("--") + flag + QLatin1String(" does not go with ") + name);

    Request request;
    const QString problem = readRequest(*action, options.arguments.mid(1), request);
    if (!problem.isEmpty())
        return tellMisuse(command(), problem);
    RegistryStore store(options.device);
    return action->execute(store, request);
}

} // namespace

int regCommand(const QStringList &commandLine)
{
    return runDeviceCommand(command(), commandLine, execute);
}
