#include "platform/desktop/icons/desktopicons.h"
#include "platform/desktop/icons/iconfile.h"
#include "platform/desktop/icons/iconimage.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace {

using platform::decodeIconImage;
using platform::IconFile;
using platform::IconImage;

// program64.dll was made of a few icons by windres and ld for 64-bit Windows, program32.dll from it by
// writing the header of a 32-bit program in front of the same section; kinds.ico holds a picture of each
// kind.
QString samplePath(const char *name)
{
    return QStringLiteral(SOURCE_DIR "/tests/platform/icons/") + QLatin1String(name);
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

std::string shown(const std::unique_ptr<platform::Icon> &icon)
{
    if (!icon)
        return "none";
    const platform::Picture picture = icon->picture();
    return QString::asprintf("%dx%d %08x", picture.width, picture.height, picture.pixels.at(0)).toStdString();
}

std::string extracted(const QString &path, int index)
{
    platform::DesktopIcons icons{platform::DeviceFolder(QDir::tempPath())};
    const platform::ExtractedIcons found = icons.extract(path.toStdU16String(), index);
    return std::to_string(found.count) + ": " + shown(found.large) + ", " + shown(found.small);
}

/// How many pictures can be drawn of those that some icons declare.
std::string found(QByteArray content)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    const IconFile file(buffer);
    int drawn = 0;
    int declared = 0;
    for (const int index : {0, 1, 2, 3, -1, -7}) {
        for (const IconImage &image : file.icon(index)) {
            ++declared;
            drawn += decodeIconImage(file.encoded(image)).isNull() ? 0 : 1;
        }
    }
    return std::to_string(drawn) + " of " + std::to_string(declared);
}

template <typename Number>
QByteArray patched(QByteArray content, int offset, Number value)
{
    const QByteArray bytes(reinterpret_cast<const char *>(&value),
                           sizeof value); // the lowest byte comes first
    return content.replace(offset, bytes.size(), bytes);
}

QByteArray run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60000)) << program.toStdString();
    return process.readAllStandardOutput();
}

QStringList filesIn(const QString &folder)
{
    QStringList files;
    for (const QFileInfo &file : QDir(folder).entryInfoList(QDir::Files))
        files += file.filePath();
    return files;
}

/// The pictures of a program's icons, each under the name that icoutils give it, without its measures.
QMap<QString, QImage> allImages(const QString &program)
{
    QMap<QString, QImage> images;
    QFile device(program);
    EXPECT_TRUE(device.open(QIODevice::ReadOnly)) << program.toStdString();
    const IconFile file(device);
    if (file.icon(0).isEmpty())
        return images;
    static const QRegularExpression line(QStringLiteral("--name='?(\\w+)'? --language=(\\d+)"));
    auto icons = line.globalMatch(QString::fromLatin1(
        run(QStringLiteral("wrestool"), {QStringLiteral("-l"), QStringLiteral("-t14"), program})));
    for (int i = 0; icons.hasNext(); ++i) {
        const auto icon = icons.next();
        const QVector<IconImage> declared = file.icon(i);
        for (int j = 0; j < declared.size(); ++j)
            images.insert(QStringLiteral("%1_14_%2_%3_%4")
                              .arg(QFileInfo(program).fileName(), icon.captured(1), icon.captured(2))
                              .arg(j + 1),
                          decodeIconImage(file.encoded(declared.at(j))));
    }
    return images;
}

} // namespace

TEST(Icons, AreThoseNearestToTheSizesThatAreShown)
{
    // The icons with names (APPLE, ZEBRA) come before those with numbers (1, 7).
    const std::pair<int, const char *> cases[] = {
        {0, "2: 32x32 ffff0002, 16x16 ffff0004"}, // the most colours
        {1, "2: 8x8 8000ff05, 8x8 8000ff05"}, // PNG
        {2, "2: 24x24 ff0000f6, 24x24 ff0000f6"}, // the first of two that are as near to 32
        {-1, "2: 24x24 ff0000f6, 24x24 ff0000f6"}, {-7, "2: 6x6 808888f8, 6x6 808888f8"},
    };
    for (const auto &[index, found] : cases)
        EXPECT_EQ(extracted(samplePath("program64.dll"), index), found) << index;
}

TEST(Icons, AreTakenFromRegularFilesOnly)
{
    const QTemporaryDir dir;
    const QString pipe = dir.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString paths[] = {pipe,
                             dir.path(),
                             dir.filePath(QStringLiteral("missing")),
                             QStringLiteral("/dev/zero"),
                             samplePath("kinds.ico") + QChar(QChar::Null) + QLatin1Char('x'),
                             QString()};
    for (const QString &path : paths)
        EXPECT_EQ(extracted(path, 0), "0: none, none") << path.toStdString();
    const QString link = dir.filePath(QStringLiteral("named.txt"));
    ASSERT_TRUE(QFile::link(samplePath("kinds.ico"), link));
    EXPECT_EQ(extracted(link, 0), "2: 3x2 00405060, 3x2 00405060"); // the content tells the kind
}

TEST(Icons, AreDecodedOfEveryKind)
{
    const char *const pixels[] = {
        "ff405060 00405060 ff405060 ff102030 ff405060 ff102030", // 1 bit, with a mask
        "ff405060 00708090 ff405060 ff102030 ff405060 ff102030", // 4 bits
        "ff405060 00708090 ff405060 ff102030 ff405060 ff102030", // 8 bits
        "ffffffff 00000000 ffffffff ffff0000 ff00ff00 ff0000ff", // 16 bits
        "ff405060 00405060 ff405060 ff102030 ff405060 ff102030", // 24 bits
        "00405060 7f708090 40ffffff 01102030 80405060 ff102030", // 32 bits; the mask does not count
        "00405060 7f708090 40ffffff 01102030 80405060 ff102030", // the same without a mask
        "ff405060 00405060 ff405060 ff102030 ff405060 ff102030", // without alpha values: the mask counts
        "40102030 40102030 40102030 40102030 40102030 40102030", // PNG
    };
    QByteArray content = contentOf(samplePath("kinds.ico"));
    QBuffer buffer(&content);
    ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
    const IconFile file(buffer);
    const QVector<IconImage> images = file.icon(0);
    ASSERT_EQ(images.size(), static_cast<int>(std::size(pixels)));
    for (int i = 0; i < images.size(); ++i) {
        const QImage image = decodeIconImage(file.encoded(images.at(i)));
        ASSERT_EQ(image.size(), QSize(3, 2)) << i;
        std::string all;
        for (int at = 0; at < 6; ++at)
            all += (at > 0 ? " " : "") + QString::asprintf("%08x", image.pixel(at % 3, at / 3)).toStdString();
        EXPECT_EQ(all, pixels[i]) << i;
    }
}

TEST(Icons, OfDamagedFilesAreMissing)
{
    const QByteArray program = contentOf(samplePath("program64.dll"));
    const QByteArray icon = contentOf(samplePath("kinds.ico"));
    constexpr int header = 0x80;
    constexpr int optionalHeader = header + 24;
    constexpr int section = optionalHeader + 240 + 6 * 40; // the one of the resources
    constexpr int root = 0x1000; // the directory of types: icons, then groups
    constexpr int group = root + 0xcd8; // the first one, with the pictures of four icons
    constexpr int png = root + 0x298;
    constexpr int bitmap = root + 0x2e8;
    constexpr int endOfIcons = root + 0xd6c;
    constexpr quint32 subdirectory = 0x80000000;
    struct Case
    {
        const char *what;
        QByteArray content;
        const char *found;
    };
    const Case cases[] = {
        {"no damage", program, "11 of 11"},
        {"last section cut short", program.left(endOfIcons), "11 of 11"},
        {"header beyond the end", patched(program, 60, 0xfffffff0), "0 of 0"},
        {"other signature", patched(program, header, quint16('N')), "0 of 0"},
        {"unknown kind of header", patched(program, optionalHeader, quint16(0x107)), "0 of 0"},
        {"header without its tables", patched(program, header + 20, quint16(112)), "0 of 0"},
        {"too few tables", patched(program, optionalHeader + 108, 2), "0 of 0"},
        {"resources outside sections", patched(program, optionalHeader + 128, 0xfffffff0), "0 of 0"},
        {"section beyond the end", patched(program, section + 20, 0xfffffff0), "0 of 0"},
        {"section without content", patched(program, section + 16, 0), "0 of 0"},
        {"section at the end of memory", patched(program, section + 12, 0xfffffff0), "0 of 0"},
        {"too many types", patched(program, root + 12, 0xffffffff), "0 of 0"},
        {"groups that are data", patched(program, root + 28, 0x58), "0 of 0"},
        {"groups that are the types again", patched(program, root + 28, subdirectory), "0 of 0"},
        {"groups beyond the end", patched(program, root + 28, 0xffffffff), "0 of 0"},
        {"icons that are the types again", patched(program, root + 20, subdirectory), "0 of 11"},
        {"endless depth", patched(program, root + 0x174, subdirectory | 0x160), "7 of 7"},
        {"group outside sections", patched(program, root + 0x258, 0xffffffff), "7 of 7"},
        {"group of a false size", patched(program, root + 0x25c, 0xffffffff), "7 of 7"},
        {"group of a false count", patched(program, group + 4, quint16(0xffff)), "11 of 11"},
        {"group with a missing icon", patched(program, group + 18, quint16(99)), "10 of 11"},
        {"empty icon", patched(program, root + 0x1dc, 0), "10 of 11"},
        {"chunk of a false length", patched(program, png + 8, 0xffffffff), "10 of 11"},
        {"large header", patched(program, bitmap, 0xffffffff), "10 of 11"},
        {"no width", patched(program, bitmap + 4, 0), "10 of 11"},
        {"large width", patched(program, bitmap + 4, 0x7fffffff), "10 of 11"},
        {"negative height", patched(program, bitmap + 8, 0x80000000), "10 of 11"},
        {"no pixels", patched(program, bitmap + 8, 2000), "10 of 11"},
        {"odd depth", patched(program, bitmap + 14, quint16(2)), "10 of 11"},
        {"compression", patched(program, bitmap + 16, 1), "10 of 11"},
        {"too many colours", patched(program, bitmap + 32, 3), "10 of 11"},
        {"cursors", patched(icon, 2, quint16(2)), "0 of 0"},
        {"no entries", patched(icon, 4, quint16(0)), "0 of 0"},
        {"too many entries", patched(icon, 4, quint16(0xffff)), "0 of 0"},
        {"entries alone", icon.left(6 + 9 * 16), "0 of 27"},
    };
    for (const Case &each : cases)
        EXPECT_EQ(found(each.content), each.found) << each.what;
    for (const QByteArray &whole : {program.left(endOfIcons), icon}) {
        for (int size = 0; size < whole.size(); ++size)
            EXPECT_NE(found(QByteArray(whole.constData(), size)), found(whole)) << size;
    }
}

TEST(Icons, TooLargePicturesAreNotDecoded)
{
    for (const int width : {1024, 1025}) {
        QImage image(width, 1, QImage::Format_Mono);
        image.fill(1);
        image.setText(QStringLiteral("Comment"), QString(1000000, QLatin1Char('x')));
        QByteArray png;
        QBuffer buffer(&png);
        ASSERT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "PNG"));
        const QImage decoded = decodeIconImage(png);
        EXPECT_EQ(decoded.width(), width == 1024 ? 1024 : 0);
        EXPECT_THAT(decoded.textKeys(), testing::IsEmpty()); // packed texts could fill the memory
    }
}

TEST(Icons, AreThoseThatIcoutilsFindInWine)
{
    const QTemporaryDir groups;
    const QTemporaryDir images;
    const QStringList programs =
        QString::fromLocal8Bit(run(QStringLiteral("sh"),
                                   {QStringLiteral("-c"), QStringLiteral("ls /usr/lib/*/wine/*-windows/*")}))
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_GT(programs.size(), 500);
    run(QStringLiteral("wrestool"),
        QStringList{QStringLiteral("-x"), QStringLiteral("-t14"), QStringLiteral("-o"), groups.path()}
            + programs);
    run(QStringLiteral("icotool"),
        QStringList{QStringLiteral("-x"), QStringLiteral("-o"), images.path()} + filesIn(groups.path()));
    const QStringList expected = filesIn(images.path());
    ASSERT_GT(expected.size(), 2000);

    QMap<QString, QImage> found;
    for (const QString &program : programs)
        found.insert(allImages(program));
    EXPECT_EQ(found.size(), expected.size());
    for (const QString &file : expected) {
        const QImage image(file);
        const QString name = QFileInfo(file).fileName();
        EXPECT_EQ(found.value(name.section(QLatin1Char('_'), 0, -2)),
                  image.convertToFormat(QImage::Format_ARGB32))
            << name.toStdString();
    }
}
