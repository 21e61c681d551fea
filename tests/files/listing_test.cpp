#include "support/providertest.h"

#include <QtCore/QDir>

TEST_F(ProviderTest, ListsFilesAndFolders)
{
    for (const char *path : {"app/pics/b.png", "app/pics/a.jpg", "app/pics/C.png", "app/pics/.hidden.png",
                             "app/pics/notes.txt", "app/pics/sub.png/x", "app/pics/Dir/x", "other/z.png"})
        makeFile(QLatin1String(path));

    const QString pics = m_dir.filePath(QStringLiteral("app/pics/"));
    const auto paths = [&pics](const QStringList &names) {
        return names.isEmpty() ? QStringLiteral("[[[]]]")
                               : QLatin1String("[[[\"") + pics + names.join(QLatin1String("\",\"") + pics)
                + QLatin1String("\"]]]");
    };
    const QString none = QStringLiteral("[]");
    const QList<QPair<QString, QString>> cases = {
        {QStringLiteral("getFiles('pics', '*.png', this, cb)"),
         paths({QStringLiteral("C.png"), QStringLiteral("b.png")})},
        {QStringLiteral("getFiles('pics/', '*.png;*.jpg', null, cb)"),
         paths({QStringLiteral("C.png"), QStringLiteral("a.jpg"), QStringLiteral("b.png")})},
        {QStringLiteral("getFiles('$APP/pics', '*.txt;;', this, cb)"), paths({QStringLiteral("notes.txt")})},
        {QStringLiteral("getFiles('pics', '*.gif', this, cb)"), paths({})},
        {QStringLiteral("getFiles('missing', '*', this, cb)"), paths({})},
        {QStringLiteral("getFiles('', '*', this, cb)"), none},
        {QStringLiteral("getDirs('pics', this, cb)"),
         paths({QStringLiteral("Dir"), QStringLiteral("sub.png")})},
        {QStringLiteral("getDirs('pics/Dir', this, cb)"), paths({})},
        {QStringLiteral("getFiles('.\\\\pics\\\\', '*.txt', this, cb)"),
         paths({QStringLiteral("notes.txt")})},
        {QStringLiteral("getDirs('', this, cb)"), none},
    };
    for (const auto &[call, expected] : cases)
        EXPECT_EQ(run(QLatin1String("results = []; ") + call + QLatin1String("; results")), expected);
    EXPECT_EQ(takeMessages(), QStringList());
}
