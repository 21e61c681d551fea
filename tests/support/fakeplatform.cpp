#include "fakeplatform.h"

#include "platform/desktop/localfolder.h"

#include <algorithm>

bool FakeShell::execute(const platform::ShellExecution &execution)
{
    executions.push_back(execution);
    return false; // which launching must not mind
}

std::optional<std::u16string> FakeShell::specialFolder(platform::SpecialFolder folder, bool create)
{
    askedFolders.append(QStringLiteral("%1 %2").arg(static_cast<int>(folder)).arg(create));
    const std::u16string &path = folder == platform::SpecialFolder::Programs ? programs : programFiles;
    return path.empty() ? std::nullopt : std::optional(path);
}

bool FakeShell::exists(const std::u16string &path)
{
    return existing.contains(QString::fromStdU16String(path));
}

std::u16string FakeShell::localPath(const std::u16string &path)
{
    std::u16string local = path;
    std::replace(local.begin(), local.end(), u'\\', u'/');
    return local;
}

void FakeShell::listFolder(const std::u16string &directory,
                           const std::function<void(const platform::FolderEntry &)> &take)
{
    platform::listLocalFolder(QString::fromStdU16String(directory), take);
}

void FakeMessageBox::show(const std::u16string &text, const std::u16string &caption)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_shown.append(QLatin1Char('[') + QString::fromStdU16String(caption) + QLatin1String("] ")
                   + QString::fromStdU16String(text));
}

QStringList FakeMessageBox::take()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_shown, {});
}

FakePlatform::FakePlatform(const QString &deviceFolder)
    : device(platform::DeviceFolder(deviceFolder))
{
}

PlatformInForce::PlatformInForce(std::unique_ptr<platform::Platform> platform)
{
    platform::install(std::move(platform));
}

PlatformInForce::~PlatformInForce()
{
    platform::install(nullptr);
}
