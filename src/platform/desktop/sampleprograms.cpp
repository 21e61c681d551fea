#include "platform/desktop/sampleprograms.h"

#include <QtCore/QFile>

// In no namespace, as the macro wants it. The linker would leave out the resource of a static library.
static void initialiseResource()
{
    Q_INIT_RESOURCE(sampleprograms);
}

namespace platform {

namespace {

struct File
{
    const char *path;
    const char *content;
};

/// In the menu. The icon is one of shellres.dll, by its number.
struct Shortcut
{
    const char *path; ///< in Programs, without ".lnk"
    const char *command;
    int icon;
};

const File documents[] = {
    {"My Documents/Welcome.txt",
     "This folder is your simulated handheld. Put files into it, change them, delete them:\n"
     "widgets see them under \\My Documents.\n"},
    {"My Documents/Shopping.txt", "Bread\nCheese\nApples\n"},
};

const File programs[] = {
    {"Program Files/Hello/hello.exe", "#!/bin/sh\necho \"Hello from the handheld: $*\"\n"},
    {"Program Files/S2P/s2p.exe",
     "#!/bin/sh\n"
     "# Plays the music player of the handheld in whose folder this file is.\n"
     "cd \"$(dirname \"$0\")/../..\" || exit\n"
     "command -v \"${HOLM:=holm}\" >/dev/null || { echo \"holm is not on the search path\" >&2; exit 127; }\n"
     "exec \"$HOLM\" s2p --device \"$PWD\" >/dev/null 2>&1 </dev/null\n"},
    {"Windows/switch.exe",
     "#!/bin/sh\n"
     "# switch.exe radios on|off, sound on|vibrate|off or network up|down switches that of the handheld in\n"
     "# whose folder this file is.\n"
     "cd \"$(dirname \"$0\")/..\" || exit\n"
     "command -v \"${HOLM:=holm}\" >/dev/null || { echo \"holm is not on the search path\" >&2; exit 127; }\n"
     "[ \"$1\" = radios ] || exec \"$HOLM\" \"$1\" --device \"$PWD\" \"$2\"\n"
     "for radio in wifi phone bluetooth; do\n"
     "    \"$HOLM\" radio --device \"$PWD\" \"$radio\" \"$2\"\n"
     "done\n"},
};

const Shortcut shortcuts[] = {
    {"Hello", R"("\Program Files\Hello\hello.exe" from a shortcut)", 101},
    {"Music Player", R"("\Program Files\S2P\s2p.exe")", 102},
    {"Accessories/icon", R"(\Programs\Accessories)", 201},
    {"Accessories/Shopping List", R"("\My Documents\Shopping.txt")", 110},
    {"Accessories/Welcome", R"("\My Documents\Welcome.txt")", 111},
    {"Accessories/Folders/My Documents", R"("\My Documents")", 112},
    {"Accessories/Folders/Program Files", R"("\Program Files")", 112},
    {"Settings/icon", R"(\Programs\Settings)", 208},
    {"Settings/Network/icon", R"(\Programs\Settings\Network)", 205},
    {"Settings/Network/Connect", R"(\Windows\switch.exe network up)", 108},
    {"Settings/Network/Disconnect", R"(\Windows\switch.exe network down)", 109},
    {"Settings/Radios Off", R"(\Windows\switch.exe radios off)", 104},
    {"Settings/Radios On", R"(\Windows\switch.exe radios on)", 103},
    {"Settings/Silent", R"(\Windows\switch.exe sound off)", 106},
    {"Settings/Sound On", R"(\Windows\switch.exe sound on)", 105},
    {"Settings/Vibrate", R"(\Windows\switch.exe sound vibrate)", 107},
};

SampleFile fileOf(const Shortcut &shortcut)
{
    const QByteArray command =
        shortcut.command + QByteArray("?\\Windows\\shellres.dll,") + QByteArray::number(-shortcut.icon);
    return {QLatin1String("Programs/") + QLatin1String(shortcut.path) + QLatin1String(".lnk"),
            QByteArray::number(command.size()) + '#' + command + "\r\n"};
}

QByteArray resource(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

std::vector<SampleFile> samplePrograms()
{
    initialiseResource();
    std::vector<SampleFile> files;
    for (const File &document : documents)
        files.push_back({QLatin1String(document.path), document.content});
    for (const File &program : programs)
        files.push_back({QLatin1String(program.path), program.content, true});
    for (const Shortcut &shortcut : shortcuts)
        files.push_back(fileOf(shortcut));
    files.push_back(
        {QStringLiteral("Windows/shellres.dll"), resource(QStringLiteral(":/sampleprograms/shellres.dll"))});
    return files;
}

} // namespace platform
