#include "kestmainprovider/flickliststyle.h"
#include "kestmainprovider/flicklisttextitem.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <gmock/gmock.h>

namespace {

class DerivedItem : public FlickListTextItem
{
    Q_GADGET
    Q_PROPERTY(int Indent MEMBER indent)

public:
    using FlickListTextItem::FlickListTextItem;
    const QMetaObject *metaObject() const override { return &staticMetaObject; }

    int indent = 0;
};

QStringList warnings;

class FlickListStyleTest : public testing::Test
{
protected:
    FlickListStyleTest()
    {
        warnings.clear();
        m_handler = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &message) { warnings.append(message); });
    }

    ~FlickListStyleTest() override { qInstallMessageHandler(m_handler); }

    /// A file of its own, so that each has its chance to be told of.
    QString write(const QByteArray &content)
    {
        const QString path = m_dir.filePath(QStringLiteral("%1.xml").arg(++m_files));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }

    /// The warnings since the last call, without the folder.
    QString told()
    {
        return std::exchange(warnings, {}).join(QLatin1Char('|')).remove(m_dir.path() + QLatin1Char('/'));
    }

    QTemporaryDir m_dir;

private:
    int m_files = 0;
    QtMessageHandler m_handler;
};

} // namespace

TEST_F(FlickListStyleTest, RefusesWhatIsMalformedAsAWhole)
{
    const auto item = [](const QByteArray &inside) {
        return "<list-style><item class='A'><color name='C'>red</color>\n" + inside + "</item></list-style>";
    };
    QByteArray manyAttributes;
    for (int i = 0; i < 90000; ++i)
        manyAttributes += " a" + QByteArray::number(i) + "=''";
    const struct
    {
        QByteArray content;
        const char *warning;
    } cases[] = {
        {"", "1: Premature end of document."},
        {"<list-style>\n<item class='A'>", "2: Premature end of document."},
        {"\n<style/>", "2: there is no element \"style\" here"},
        {"<list-style/>\n<list-style/>", "2: Extra content at end of document."},
        {"<!DOCTYPE a [<!ENTITY e 'x'>]>\n<list-style/>", "1: a document type is not allowed"},
        {"<list-style>\n<icon/></list-style>", "2: there is no element \"icon\" here"},
        {"<list-style>\n<item/></list-style>", "2: \"item\" lacks its class"},
        {"<list-style><item class='A'/>\n<item class='A'/></list-style>", "2: class \"A\" is there twice"},
        {"<list-style><picture name='p'>a</picture>\n<picture name='p'>b</picture></list-style>",
         "2: picture \"p\" is there twice"},
        {"<list-style>\n<picture name='p'> </picture></list-style>", "2: picture \"p\" has no file"},
        {item("<size name='S'>1</size>"), "2: there is no element \"size\" here"},
        {item("<color name=''>red</color>"), "2: \"color\" lacks its name"},
        {item("<number name='C'>1</number>"), "2: \"C\" is there twice"},
        {item("<color name='D'>redd</color>"), "2: \"redd\" is not a colour, such as #1d63b8"},
        {item("<color name='D'>r<b/>ed</color>"), "2: there is no element \"b\" here"},
        {item("red"), "2: \"red\" stands outside of a value"},
        {item("<number name='N'>10000.1</number>"), "2: \"10000.1\" is not a number from 0 to 10000"},
        {item("<number name='N'>nan</number>"), "2: \"nan\" is not a number from 0 to 10000"},
        {item("<font name='F'>bold</font>"), "2: \"bold\" is not a font, such as bold 15px Tahoma"},
        {item("<font name='F'>bold bold 1px A</font>"),
         "2: \"bold bold 1px A\" is not a font, such as bold 15px Tahoma"},
        {item("<font name='F'>1001px A</font>"), "2: \"1001px A\" is not a font, such as bold 15px Tahoma"},
        {item("<color name='D'>&e;</color>"), "2: Entity 'e' not declared."},
        {item("<color name='D'" + manyAttributes + ">red</color>"), " larger than 64 kB"},
        {item(QByteArray(1024 * 1024, ' ')), " larger than 64 kB"},
    };
    for (const auto &c : cases) {
        FlickListStyle style;
        ASSERT_TRUE(style.load(write("<list-style><item class='FlickListTextItem'>"
                                     "<number name='Height'>9</number></item></list-style>")));
        const QString path = write(c.content);
        EXPECT_FALSE(style.load(path)) << c.warning;
        EXPECT_FALSE(style.load(path));
        EXPECT_EQ(told().section(QLatin1Char(':'), 1).toStdString(), c.warning);
        EXPECT_FALSE(style.value(FlickListTextItem::staticMetaObject, QStringLiteral("Height")).isValid());
    }

    FlickListStyle style;
    EXPECT_FALSE(style.load(m_dir.filePath(QStringLiteral("none.xml"))));
    EXPECT_FALSE(style.load(m_dir.path()));
    EXPECT_EQ(told().toStdString(),
              "none.xml: No such file or directory|" + m_dir.path().toStdString() + ": not a file");
}

TEST_F(FlickListStyleTest, ValuesHoldForDerivedClassesToo)
{
    FlickListStyle style;
    ASSERT_TRUE(style.load(write("<?xml version='1.0'?><list-style><!-- looks -->\n"
                                 "<item class='FlickListTextItem'>\n"
                                 "  <color name='SelectedColor'> #80ff0000 </color>\n"
                                 "  <font name='Font'>bold  italic 20px Deja Vu</font>\n"
                                 "  <number name='Height'>32.5</number>\n"
                                 "  <color name='Border'>red</color>\n"
                                 "  <font name='NonSelectedColor'>9px A</font>\n"
                                 "</item>\n"
                                 "<item class='DerivedItem'>\n"
                                 "  <number name='Height'>64</number>\n"
                                 "  <number name='Indent'>7</number>\n"
                                 "</item></list-style>")));
    for (int round = 0; round < 2; ++round) {
        DerivedItem derived(QStringLiteral("d"));
        FlickListTextItem base(QStringLiteral("b"));
        style.apply(derived);
        style.apply(base);
        EXPECT_EQ(derived.selectedColor, QColor(255, 0, 0, 128));
        EXPECT_EQ(base.selectedColor, QColor(255, 0, 0, 128));
        EXPECT_EQ(base.nonSelectedColor, QColor(Qt::black));
        EXPECT_EQ(derived.font.family(), QStringLiteral("Deja Vu"));
        EXPECT_TRUE(derived.font.bold() && derived.font.italic() && derived.font.pixelSize() == 20);
        EXPECT_EQ(derived.height(), 64);
        EXPECT_EQ(derived.indent, 7);
        EXPECT_EQ(base.height(), 32.5);
    }
    EXPECT_EQ(style.value(DerivedItem::staticMetaObject, QStringLiteral("Height")), QVariant(64.0));
    const QStringList problems = told().split(QLatin1Char('|'));
    EXPECT_EQ(problems.size(), 4); // two properties of each class
    EXPECT_EQ(
        problems.filter(QStringLiteral("1.xml: the rows of class \"DerivedItem\" have no property")).size(),
        2);
}

TEST_F(FlickListStyleTest, PicturesLieBesideTheFileAndAreReadOnce)
{
    QImage red(3, 2, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(m_dir.filePath(QStringLiteral("red.png"))));
    ASSERT_TRUE(QImage(2049, 1, QImage::Format_Mono).save(m_dir.filePath(QStringLiteral("wide.png"))));
    ASSERT_TRUE(QDir(m_dir.path()).mkdir(QStringLiteral("folder")));
    FlickListStyle style;
    ASSERT_TRUE(style.load(write("<list-style><picture name='a'>folder/../red.png</picture>"
                                 "<picture name='b'>none.png</picture><picture name='c'>wide.png</picture>"
                                 "<picture name='d'>folder</picture></list-style>")));
    const QPixmap picture = style.picture(QStringLiteral("a"));
    EXPECT_EQ(picture.size(), QSize(3, 2));
    EXPECT_EQ(style.picture(QStringLiteral("a")).cacheKey(), picture.cacheKey());
    EXPECT_EQ(told(), QString());
    for (const char *name : {"b", "c", "d", "b", "unknown"})
        EXPECT_TRUE(style.picture(QString::fromLatin1(name)).isNull());
    EXPECT_EQ(told().toStdString(),
              "none.png: not a picture that can be read|wide.png: not a picture that can be read|"
              "folder: not a picture that can be read");
}

TEST_F(FlickListStyleTest, ARowReadsOneLineThatEndsBeforeTheRow)
{
    FlickListTextItem item(QStringLiteral("control\ncharacters\r\u2028\t\x9c").repeated(100000));
    item.setHeight(-1);
    item.setHeight(std::numeric_limits<qreal>::infinity());
    EXPECT_EQ(item.height(), 30);
    QImage row(240, 30, QImage::Format_RGB32);
    row.fill(Qt::red);
    QPainter painter(&row);
    item.paint(&painter);
    painter.end();
    const QRect text(10, 5, 220, 20);
    for (int y = 0; y < row.height(); ++y) {
        for (int x = 0; x < row.width(); ++x) {
            const bool isFrame = x == 0 || y == 0 || x == 239 || y == 29;
            const QColor expected = isFrame ? QColor(Qt::lightGray) : QColor(Qt::white);
            if (isFrame || !text.contains(x, y)) {
                ASSERT_EQ(row.pixelColor(x, y), expected) << x << ' ' << y;
            }
        }
    }
    EXPECT_NE(row.copy(text), QImage(row.copy(1, 1, 1, 1)).scaled(text.size()));
}

#include "flickliststyle_test.moc"
