#include "support/providertest.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <unistd.h>

namespace {

/// Root may do anything, so what permissions forbid is tried as nobody.
class AsNobody
{
public:
    AsNobody()
    {
        if (geteuid() == 0)
            m_changed = setegid(nobody) == 0 && seteuid(nobody) == 0;
    }
    ~AsNobody() { EXPECT_TRUE(!m_changed || (seteuid(0) == 0 && setegid(0) == 0)); }
    Q_DISABLE_COPY(AsNobody)

    static constexpr uid_t nobody = 65534;

private:
    bool m_changed = false;
};

class DeletionTest : public ProviderTest
{
protected:
    void makeTree() const
    {
        for (const char *path : {"app/file", "app/sub/inner", "app/sub/deep/x", "app/sub/.hidden",
                                 "app/other/keep", "outside/secret", "outside/dir/x", "app-sibling/x"})
            makeFile(QLatin1String(path));
        QDir(m_dir.path()).mkpath(QStringLiteral("app/empty"));
        link("outside", "app/out");
        link("outside/secret", "app/filelink");
        link("app/other", "app/in");
        link("nowhere", "app/dangling");
        link("outside", "app/sub/out");
        link("nowhere", "app/sub/dangling");
        // Read with its link followed, "out/../victim" is another folder than as text.
        makeFile(QStringLiteral("victim/deep/x"));
        QDir(m_dir.path()).mkpath(QStringLiteral("app/victim"));
        link("outside", "app/victim/deep");
        link("app/loop", "app/loop");
        link("app", "app-link");
    }

    void link(const char *target, const char *path) const
    {
        QFile::link(m_dir.filePath(QLatin1String(target)), m_dir.filePath(QLatin1String(path)));
    }
};

const QString refusal = QStringLiteral("[Error] Cannot delete a path outside the application directory.");

} // namespace

TEST_F(DeletionTest, StaysInsideTheApplicationDirectory)
{
    const char *const refused[] = {
        "deleteFile('/etc/nosuchfile')",
        "deleteFile('$APP')",
        "deleteFile('$APP/')",
        "deleteFile('\\\\file')",
        "deleteFile('$APP/../outside/secret')",
        "deleteFile('../outside/secret')",
        "deleteFile('out/secret')",
        "deleteFile('out/dir/x')",
        "deleteFile('in/../../outside/secret')",
        "deleteFile('missing/../../outside/secret')",
        "deleteFile('$APP-sibling/x')",
        "deleteFile('')",
        "deleteFile('sub/..')",
        "deleteFile('..\\\\outside\\\\secret')",
        "deleteFile('out/.')",
        "deleteDir('')",
        "deleteDir('.', true)",
        "deleteDir('sub/..', true)",
        "deleteDir('sub/../', true)",
        "deleteDir('$APP', true)",
        "deleteDir('$APP/', true)",
        "deleteDir('$APP//', true)",
        "deleteDir('$APP/.', true)",
        "deleteDir('$APP-link', true)",
        "deleteDir('$APP-sibling', true)",
        "deleteDir('../outside', true)",
        "deleteDir('$APP/../outside', true)",
        "deleteDir('out/dir', true)",
        "deleteDir('sub/out/dir/', true)",
        "deleteDir('out/../victim', true)",
        "deleteDir('out\\u0000/dir', true)",
        "deleteDir('sub/out\\u0000', true)",
        "deleteDir('$APP/out\\u0000', true)",
        "deleteFile('out/secret\\u0000')",
        "deleteDir('/', true)",
        "deleteDir('$APP'.toUpperCase() + '/sub', true)",
    };
    makeTree();
    for (const char *call : refused) {
        run(QLatin1String(call));
        EXPECT_EQ(takeMessages(), QStringList(refusal)) << call;
    }
    for (const char *path : {"app/file", "app/sub/deep/x", "app/victim/deep", "victim/deep/x",
                             "outside/secret", "outside/dir/x", "app-sibling/x"})
        EXPECT_TRUE(exists(QLatin1String(path))) << path;
}

TEST_F(DeletionTest, DeletesWhatIsNamedAndNothingElse)
{
    struct Case
    {
        const char *call;
        const char *gone;
        const char *kept;
    };
    const Case cases[] = {
        {"deleteFile('file')", "app/file", "app/sub"},
        {"deleteFile('$APP/sub/inner')", "app/sub/inner", "app/sub/deep/x"},
        {"deleteFile('sub\\\\deep\\\\x')", "app/sub/deep/x", "app/sub/deep"},
        {"deleteFile('in/keep')", "app/other/keep", "app/in"},
        {"deleteFile('filelink')", "app/filelink", "outside/secret"},
        {"deleteFile('out')", "app/out", "outside/secret"},
        {"deleteFile('dangling')", "app/dangling", "app/file"},
        {"deleteFile('sub')", nullptr, "app/sub/inner"},
        {"deleteFile('missing')", nullptr, "app/file"},
        {"deleteDir('empty')", "app/empty", "app/sub"},
        {"deleteDir('empty/')", "app/empty", "app/sub"},
        {"deleteDir('sub/../empty\\\\')", "app/empty", "app/sub"},
        {"deleteDir('sub')", nullptr, "app/sub/inner"},
        {"deleteDir('sub', false)", nullptr, "app/sub/inner"},
        {"deleteDir('sub', 'true')", nullptr, "app/sub/inner"},
        {"deleteDir('empty/.')", "app/empty", "app/sub"},
        {"deleteDir('sub', true)", "app/sub", "outside/secret"},
        {"deleteDir('sub/deep/..', true)", "app/sub", "outside/secret"},
        {"deleteDir('in/../sub', true)", "app/sub", "app/in"},
        {"deleteDir('out', true)", "app/out", "outside/dir/x"},
        {"deleteDir('out/')", "app/out", "outside/dir/x"},
        {"deleteDir('in', true)", "app/in", "app/other/keep"},
        {"deleteDir('loop', true)", "app/loop", "app/file"},
        {"deleteDir('file', true)", nullptr, "app/file"},
        {"deleteDir('missing/x', true)", nullptr, "app/file"},
    };
    for (const Case &c : cases) {
        makeTree();
        run(QLatin1String(c.call));
        EXPECT_EQ(takeMessages(), QStringList()) << c.call;
        EXPECT_TRUE(!c.gone || !exists(QLatin1String(c.gone))) << c.call;
        EXPECT_TRUE(exists(QLatin1String(c.kept))) << c.call;
    }
}

TEST_F(DeletionTest, GoesOnBehindAFolderThatCannotBeRead)
{
    makeTree();
    QFile::remove(m_dir.filePath(QStringLiteral("app/sub/deep/x")));
    makeFile(QStringLiteral("app/sub/a-locked/x"));
    makeFile(QStringLiteral("app/sub/z/x"));
    const QByteArray locked = QFile::encodeName(m_dir.filePath(QStringLiteral("app/sub/a-locked")));
    if (geteuid() == 0) {
        const QByteArray chown = "chown -Rh 65534:65534 " + QFile::encodeName(m_dir.path());
        ASSERT_EQ(system(chown.constData()), 0);
    }
    ASSERT_TRUE(QFile::setPermissions(QString::fromLocal8Bit(locked), QFile::Permissions()));
    {
        const AsNobody nobody;
        run(QStringLiteral("deleteDir('sub', true)"));
    }
    EXPECT_TRUE(QFile::setPermissions(QString::fromLocal8Bit(locked),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    EXPECT_TRUE(exists(QStringLiteral("app/sub/a-locked/x")));
    for (const char *path : {"app/sub/inner", "app/sub/deep", "app/sub/z", "app/sub/out", "app/sub/dangling"})
        EXPECT_FALSE(exists(QLatin1String(path))) << path;
    EXPECT_EQ(takeMessages(), QStringList());
}
