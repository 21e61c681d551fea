// registrywriter DEVICE COUNT VALUES
// registrywriter DEVICE
//
// Another process that writes to the registry, to values of HKEY_CURRENT_USER\Software\Widgets: the numbers 1
// to COUNT, in turn to "v0", "v1" and so on, printing each when it has been written; or for each line of
// standard input the time to "clock".

#include "microseconds.h"

#include "platform/desktop/devicefolder.h"
#include "platform/desktop/registrydata.h"

#include <cstdlib>
#include <iostream>
#include <string>

int main(int argc, char **argv)
{
    if (argc != 2 && argc != 4)
        return 2;
    platform::RegistryStore store{platform::DeviceFolder(QString::fromLocal8Bit(argv[1]))};
    const auto key = store.find(platform::RegistryRoot::CurrentUser, QStringLiteral("Software\\Widgets"));
    const auto write = [&](const QString &name, quint32 number) {
        if (!key || !store.setValue(*key, platform::numberValue(name, number)))
            std::exit(1);
    };
    if (argc == 2) {
        for (std::string line; std::getline(std::cin, line);)
            write(QStringLiteral("clock"), microseconds());
        return 0;
    }
    const auto count = static_cast<quint32>(std::atoi(argv[2]));
    const auto values = static_cast<quint32>(std::atoi(argv[3]));
    for (quint32 number = 1; number <= count; ++number) {
        write(QStringLiteral("v%1").arg(number % values), number);
        std::cout << number << std::endl;
    }
}
