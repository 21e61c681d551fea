#include "orvanecore/iprovider.h"
#include "provider/kestcommandprovider.h"
#include "support/providertest.h"

#include <QtCore/QJsonObject>
#include <QtCore/QLibrary>
#include <QtCore/QPluginLoader>

TEST(Plugin, IsFoundByItsInterface)
{
    QPluginLoader loader(QStringLiteral(KESTCMD_PLUGIN));
    EXPECT_EQ(loader.metaData().value(QLatin1String("IID")).toString(), QStringLiteral("Rux.IProvider/1.0"));

    const std::unique_ptr<QObject> plugin(loader.instance());
    auto *provider = qobject_cast<IProvider *>(plugin.get());
    ASSERT_NE(provider, nullptr);
    EXPECT_EQ(provider->name(), QStringLiteral("KestCmd"));
    EXPECT_EQ(plugin->qt_metacast("KestCommandProvider"), plugin.get());
    EXPECT_EQ(plugin->qt_metacast("IProvider"), provider);
    EXPECT_EQ(plugin->qt_metacast("Rux.IProvider/1.0"), provider);
    EXPECT_NE(static_cast<void *>(provider), plugin.get());
    EXPECT_EQ(plugin->qt_metacast("Rux.IProvider/2.0"), nullptr);
}

TEST(Plugin, HandsOutOneObjectUntilThatIsDeleted)
{
    QLibrary library(QStringLiteral(KESTCMD_PLUGIN));
    const auto instance = reinterpret_cast<QObject *(*)()>(library.resolve("qt_plugin_instance"));
    ASSERT_NE(instance, nullptr);
    QPointer<QObject> first = instance();
    EXPECT_EQ(instance(), first);
    delete first;
    const std::unique_ptr<QObject> second(instance());
    EXPECT_STREQ(second->metaObject()->className(), "KestCommandProvider");
}

TEST(Plugin, TellsHostsOfOldWhatItWasBuiltFor)
{
    QLibrary library(QStringLiteral(KESTCMD_PLUGIN));
    const auto verify =
        reinterpret_cast<const char *(*)()>(library.resolve("qt_plugin_query_verification_data"));
    ASSERT_NE(verify, nullptr);
    EXPECT_STREQ(verify(),
                 "pattern=QT_PLUGIN_VERIFICATION_DATA\nversion=4.5.2\ndebug=false\n"
                 "buildkey=Windows msvc release orvane-config no-stl");
}

TEST(Provider, LastOneMadeIsTheInstance)
{
    const KestCommandProvider first;
    EXPECT_EQ(KestCommandProvider::instance(), &first);
    const auto second = std::make_unique<KestCommandProvider>();
    EXPECT_EQ(KestCommandProvider::instance(), second.get());
    EXPECT_EQ(second->name(), QStringLiteral("KestCmd"));
    second->Unload(); // before its start: nothing to stop, nothing to wait for
}

TEST(Provider, StartsWithoutAConfigurationStore)
{
    const QTemporaryDir directory;
    RecordingApplication application(directory.path(), false);
    KestCommandProvider provider;
    provider.InitializeScript(&application);
    provider.BeginInitialize();
    application.engine().evaluate(QStringLiteral("getConfig('s', this, function(a) { got = a; }, 'k')"));
    EXPECT_TRUE(application.engine().evaluate(QStringLiteral("got[0] === null")).toBool());
    provider.Unload();
}

TEST_F(ProviderTest, StartsInOrder)
{
    const QString translations = m_application.applicationPath() + QLatin1String("language/kestcmdprovider_");
    EXPECT_EQ(
        m_application.calls,
        QStringList({QLatin1String("loadTranslation ") + translations, QStringLiteral("provider KestApi")}));
}
