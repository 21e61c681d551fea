#include "support/holmprocess.h"

#include <gmock/gmock.h>

// The real plug-in with the styles and translations that it ships with: rows are twice as high on the larger
// screen.
TEST(HolmDialogs, FollowScreenAndLocale)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("w.js"), R"(
        browseFiles(this, function(path) { print(path.replace(/.*\//, "")); }, "/My Documents", "", false);
        listInput(this, print, "", 0, ["a", "b"]);
        browseFiles(this, print, "/My Documents", "", true, true);
        textInput(Array(60).join("label "), "", this, print);)");
    holm.write(QStringLiteral("r.js"), R"(
        var answers = [
            function() { robot.clickAt(100, 40); },
            function() { robot.clickAt(100, 40); },
            function(d) { print(d.actionExit.text, d.actionSelect.text); d.hide(); },
            function(d) { print(d.width <= 480); robot.cancel(); }
        ];
        robot.onDialog(function(d) { print(d.windowTitle); answers.shift()(d); });)");
    struct Case
    {
        const char *option;
        const char *output;
    };
    const Case cases[] = {
        {"--locale=C",
         "File Browser\nWelcome.txt\nChoose an entry\ntrue b 1\nFile Browser\nCancel "
         "Select\nnull\n\ntrue\nfalse \n"},
        {"--vga",
         "File Browser\nShopping.txt\nChoose an entry\ntrue a 0\nFile Browser\nCancel "
         "Select\nnull\n\ntrue\nfalse \n"},
        {"--locale=de",
         "Dateibrowser\nWelcome.txt\nEintrag auswählen\ntrue b 1\nDateibrowser\nAbbrechen "
         "Auswählen\nnull\n\ntrue\nfalse \n"},
    };
    for (const Case &c : cases) {
        const HolmResult result =
            holm.run({QStringLiteral("--unattended"), QStringLiteral("--robot"), QStringLiteral("r.js"),
                      QLatin1String(c.option), QStringLiteral("w.js")});
        EXPECT_EQ(result.status, 0) << c.option;
        EXPECT_EQ(result.output.toStdString(), c.output) << c.option;
        EXPECT_EQ(result.errors.toStdString(), "") << c.option;
    }
}
