#include "support/holmprocess.h"

#include <QtGui/QImage>
#include <gmock/gmock.h>

using testing::StartsWith;

namespace {

HolmResult runRobot(const QByteArray &robot, const QByteArray &widget, const char *options)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("r.js"), robot);
    holm.write(QStringLiteral("w.js"), widget);
    return holm.run(QStringLiteral("--plugin " LATECOMER_PLUGIN " --robot %1 w.js")
                        .arg(QLatin1String(options))
                        .split(QLatin1Char(' ')));
}

const char panel[] = "panel(null, print)";

} // namespace

TEST(HolmRobot, StatusAndOutput)
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // for the cases with a user's screen
    struct Case
    {
        const char *robot;
        const char *widget;
        const char *options; ///< from the name of the robot's file on
        int status;
        const char *output;
        const char *errors; ///< what standard error begins with
    };
    const Case cases[] = {
        {R"(robot.onDialog(function(d) {
                print(d.windowTitle, robot.rows().length, robot.selected());
                robot.type("\u00dc \ud83d\ude00 \u4e2de\u0301&");
                print(d.field.text);
                robot.click("Row 30");
                robot.print(robot.selected());
            });
            robot.onDialog(function() { robot.accept(); robot.accept(); robot.cancel(); });
            robot.onDialog(function() { print("not reached"); });)",
         panel, "r.js --unattended", 0,
         "Panel 60 null\n\u00dc \U0001f600 \u4e2de\u0301&\nRow 30\naccepted \u00dc \U0001f600 \u4e2de\u0301& "
         "Row 30\n",
         ""},
        {R"(robot.onDialog(function(d) {
                if (d.windowTitle === "Inner") {
                    print("inner");
                    robot.cancel();
                } else {
                    robot.click("Ask...");
                    robot.click("Row 59");
                    print("closed by the row");
                    robot.wait(1);
                }
            });)",
         panel, "r.js --unattended", 0, "inner\nclosed by the row\naccepted  Row 59\n", ""},
        {"robot.onDialog(function() { robot.type('xy'); robot.cancel(); });", panel,
         "r.js --unattended --vga", 0, "rejected xy \n", ""},
        {R"(robot.onDialog(function(d) {
                ["x", "Ctrl+A", "Shift+y", "Tab", "PgDown", "End", "Up"].forEach(robot.key);
                robot.clickAt(d.field.x + 5, d.field.y + 5);
                robot.type("z\n");
            });)",
         panel, "r.js", 0, "accepted zY Row 58\n", ""},
        {R"(robot.onDialog(function(d) {
                function attempt(f) { try { f(); } catch (e) { print(e.message.split(', "Row')[0]); } }
                attempt(function() { robot.click("Never"); });
                attempt(function() { robot.click("&OK"); });
                ["Nonsense", "a, b", "Ctrl+", ""].forEach(function(key) { attempt(function() { robot.key(key); }); });
                [[-1, 0], [0, 320], [NaN, 0], [1e99, 0]].forEach(function(place) {
                    attempt(function() { robot.clickAt(place[0], place[1]); });
                });
                attempt(function() { robot.screenshot("no/such/folder.png"); });
                attempt(function() { robot.type("a\nb"); });
                attempt(robot.rows);
            });)",
         panel, "r.js --unattended", 0,
         "\"Never\" is disabled; what can be clicked: \"OK\", \"File\", \"More\", \"Ask...\", \"Exit\"\n"
         "there is no \"&OK\"; what can be clicked: \"OK\", \"File\", \"More\", \"Ask...\", \"Exit\"\n"
         "there is no key \"Nonsense\"\nthere is no key \"a, b\"\nthere is no key \"Ctrl+\"\nthere is no key "
         "\"\"\n"
         "the dialog reaches from (0, 0) to (239, 319)\nthe dialog reaches from (0, 0) to (239, 319)\n"
         "the dialog reaches from (0, 0) to (239, 319)\nthe dialog reaches from (0, 0) to (239, 319)\n"
         "no/such/folder.png: the picture cannot be saved\nno dialog is open any more, to type \"b\"\n"
         "no dialog is open\naccepted a \n",
         ""},
        {"robot.onDialog(function() { print('box'); robot.accept(); });",
         "message(null, 'hello'); print('after');", "r.js --unattended", 0, "box\nafter\n", "[Note] hello\n"},
        {"robot.onDialog(function() { robot.cancel(); });", "message(null, 'hello'); print('after');", "r.js",
         0, "after\n", ""},
        {"robot.onDialog(function() { robot.wait(1e12); });", panel, "r.js --unattended --timeout 0.2", 124,
         "", "holm: the time is over\n"},
        {"robot.onDialog(function(d) { if (d.windowTitle == 'Inner')\nx();\nrobot.click('Ask...'); })", panel,
         "r.js --unattended", 1, "", "r.js:2: ReferenceError: Can't find variable: x\n"},
        {"robot.onDialog(function(d) { d.field.textChanged.connect(function() { x() });\nrobot.type('a') })",
         panel, "r.js --unattended", 1, "", "r.js:1: ReferenceError: Can't find variable: x\n"},
        {"\nrobot.type('x')", "print('started')", "r.js --unattended", 1, "",
         "r.js:2: Error: no dialog is open\n"},
        {"robot.onDialog('x')", "print('started')", "r.js --unattended", 1, "",
         "r.js:1: TypeError: onDialog: "},
        {"\nvar a = (;", "print('started')", "r.js --unattended", 1, "", "r.js:2: SyntaxError: "},
        {"", "print('started')", "missing.js --unattended", 2, "",
         "holm: --robot: \"missing.js\" cannot be read: No such file or directory\n"},
        {"", "print('started')", "/dev/zero --unattended", 2, "",
         "holm: --robot: \"/dev/zero\" is not a file\n"},
        {"robot.onDialog(function(d) { robot.wait(10); while (true); })", "\ndialog(60000, print)",
         "r.js --unattended", 3, "",
         "[cancelled] Question, opened by w.js:2\nholm: no handler of the robot closed it within 5 "
         "seconds\n"},
    };
    for (const Case &c : cases) {
        const HolmResult result = runRobot(c.robot, c.widget, c.options);
        EXPECT_EQ(result.status, c.status) << c.robot << result.errors.toStdString();
        EXPECT_EQ(result.output.toStdString(), c.output) << c.robot;
        EXPECT_THAT(result.errors.toStdString(), StartsWith(c.errors)) << c.robot;
        EXPECT_EQ(result.errors.isEmpty(), *c.errors == '\0') << c.robot << result.errors.toStdString();
    }
}

TEST(HolmRobot, TakesAPictureOfADialogThatFillsTheHandheldsScreen)
{
    const HolmProcess holm;
    holm.write(
        QStringLiteral("r.js"),
        "robot.onDialog(function() { robot.screenshot(robot.rows().length + '.png'); robot.cancel(); })");
    holm.write(QStringLiteral("w.js"), panel);
    for (const auto &[options, size] :
         {std::pair{"--unattended", QSize(240, 320)}, {"--unattended --vga", QSize(480, 640)}}) {
        holm.run(QStringLiteral("%1 --plugin " LATECOMER_PLUGIN " --robot r.js w.js")
                     .arg(QLatin1String(options))
                     .split(QLatin1Char(' ')));
        EXPECT_EQ(QImage(holm.path(QStringLiteral("60.png"))).size(), size) << options;
    }
}
