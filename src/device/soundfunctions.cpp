#include "orvanecore/functionarguments.h"
#include "platform/platform.h"
#include "platform/soundsettings.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

using platform::SoundType;

namespace {

struct Profile
{
    const char *name;
    SoundType type;
};

/// The first stands for all other names and types.
constexpr Profile profiles[] = {
    {"on", SoundType::On}, {"vibrate", SoundType::Vibrate}, {"off", SoundType::None}};

template <class Test>
const Profile &profileThat(Test holds)
{
    for (const Profile &profile : profiles) {
        if (holds(profile))
            return profile;
    }
    return profiles[0];
}

} // namespace

void KestCommandProvider::getSoundProfile(FunctionArguments *arguments)
{
    // A wrapped native object, where other functions take any object.
    if (!checkArguments("getSoundProfile", *arguments,
                        {2, 2, {ArgumentType::QObject, ArgumentType::Function}}))
        return;

    platform::SoundRecord record;
    if (platform::current().sound().get(platform::allSounds, record) < 0)
        return;
    const Profile &profile = profileThat([&record](const Profile &p) { return p.type == record.type; });
    answer(arguments->argument(0), arguments->argument(1), {QString::fromLatin1(profile.name)});
}

void KestCommandProvider::setSoundProfile(FunctionArguments *arguments)
{
    if (!checkArguments("setSoundProfile", *arguments, {1, 1, {ArgumentType::String}}))
        return;

    const QString name = arguments->argument(0).toString();
    platform::SoundRecord record;
    record.type = profileThat([&name](const Profile &p) { return name == QLatin1String(p.name); }).type;
    platform::current().sound().set(platform::allSounds, record, platform::withoutUserInterface);
}
