#include "programs/programsmenu.h"
#include "support/providertest.h"

#include <QtCore/QSettings>

TEST_F(ProviderTest, ConfigurationKeepsTypes)
{
    run(QStringLiteral("setConfig('s', 'five', 5, 'half', 0.5, 'yes', true, 'text', 'number:1', 'empty', '',"
                       " 'none', null, 'list', [1, 2], 7, 'seven')"));
    EXPECT_EQ(m_store.getConfig(QStringLiteral("s"), QStringLiteral("five"), QVariant()), QVariant(5.0));
    m_store.setConfig(QStringLiteral("s"), QStringLiteral("int"), 3);
    EXPECT_EQ(
        run(QStringLiteral("getConfig('s', this, cb, 'five', 'half', 'yes', 'text', 'empty', 'none', 'list',"
                           " '7', 'int', 'missing', 7); results[0][0]")),
        QStringLiteral(R"([5,0.5,true,"number:1","","null","1,2","seven",3,null,null])"));
}

TEST_F(ProviderTest, ConfigurationAnswersWithTheThisObject)
{
    EXPECT_EQ(
        run(QStringLiteral("var me = {}; getConfig(5, me, function() { same = this === me; }, 'k'); same")),
        QStringLiteral("true"));
}

TEST_F(ProviderTest, DeletesOneValueOrASection)
{
    run(QStringLiteral(
        "setConfig('a', 'x', 1, 'y', 2, '', 3); setConfig('ab', 'x', 4); deleteConfig('a', 'x')"));
    EXPECT_EQ(run(QStringLiteral("getConfig('a', this, cb, 'x', 'y', ''); results.pop()[0]")),
              QStringLiteral("[null,2,3]"));
    run(QStringLiteral("deleteConfig('a')"));
    EXPECT_EQ(
        run(QStringLiteral("getConfig('a', this, cb, 'y', ''); getConfig('ab', this, cb, 'x'); results")),
        QStringLiteral("[[[null,null]],[[4]]]"));
}

TEST_F(ProviderTest, CacheSettingsAreTakenUpOnChange)
{
    const QTemporaryDir settingsDirectory;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settingsDirectory.path());
    emit m_store.configChanged();
    EXPECT_TRUE(ProgramsMenu::useCache);
    EXPECT_FALSE(ProgramsMenu::useIconsCache);
    EXPECT_EQ(m_shell->askedFolders, QStringList(QStringLiteral("2 0")));

    QSettings settings;
    settings.setValue(QStringLiteral("main/useProgramsCache"), false);
    settings.setValue(QStringLiteral("main/useProgramsIconCache"), true);
    emit m_store.configChanged();
    EXPECT_FALSE(ProgramsMenu::useCache);
    EXPECT_TRUE(ProgramsMenu::useIconsCache);
    EXPECT_EQ(m_shell->askedFolders.size(), 1);
}
