#include "orvanecore/imageresources.h"
#include "orvanecore/kestimage.h"

#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>

TEST(KestImage, FollowsItsResource)
{
    const QTemporaryDir stock;
    QPixmap green(4, 4);
    green.fill(Qt::green);
    ASSERT_TRUE(green.save(stock.filePath(QStringLiteral("green.png"))));
    ImageResources resources(stock.path() + QLatin1Char('/'));
    KestImage image;
    image.resize(40, 20);
    const auto centre = [&image] { return image.grab().toImage().pixelColor(20, 10); };
    const QColor nothing = centre();

    image.setResource(QStringLiteral("pictures/red"));
    EXPECT_EQ(centre(), nothing);
    QPixmap red(2, 2);
    red.fill(Qt::red);
    resources.add(QStringLiteral("pictures/red"), red);
    EXPECT_EQ(centre(), QColor(Qt::red));
    EXPECT_EQ(image.grab().toImage().pixelColor(2, 10), nothing); // the aspect ratio is kept
    resources.remove(QStringLiteral("pictures/red"));
    EXPECT_EQ(centre(), nothing);
    image.setResource(QStringLiteral("green.png"));
    EXPECT_EQ(centre(), QColor(Qt::green));
    image.setResource(QStringLiteral("missing.png"));
    EXPECT_EQ(centre(), nothing);
}
