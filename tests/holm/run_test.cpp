#include "support/holmprocess.h"

#include <QtCore/QFile>
#include <QtGui/QImage>
#include <csignal>
#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

QStringList words(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

HolmResult runScript(const char *options, const QByteArray &script)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("w.js"), script);
    return holm.run(words(options) << QStringLiteral("w.js"));
}

const char faceWithButton[] = R"(<ui version="4.0"><class>Form</class><widget class="QWidget" name="Form">
<property name="geometry"><rect><width>60</width><height>40</height></rect></property>
<property name="styleSheet"><string>QWidget#Form { background: red }</string></property>
<widget class="QWidget" name="box"><widget class="QPushButton" name="button"/></widget>
<widget class="KestImage" name="picture"><property name="resource" stdset="0"><string>images/app/exe.png</string>
</property></widget></widget></ui>)";

} // namespace

TEST(HolmRun, StatusAndOutput)
{
    struct Case
    {
        const char *options;
        const char *script;
        int status;
        const char *output;
        const char *errors; ///< what standard error begins with
    };
    const Case cases[] = {
        {"--unattended", "print(1, 'a b', null);", 0, "1 a b null\n", ""},
        {"--unattended", "quit(7); print('not reached');", 7, "", ""},
        {"--unattended", "while (true) { try { quit(3) } catch (e) {} }", 3, "", ""},
        {"--unattended", "setTimeout(function() { quit(4) }, 1); setInterval(function() {}, 1)", 4, "", ""},
        {"--unattended", "var a = 1;\nvar b = (;", 1, "", "w.js:2: SyntaxError: "},
        {"--unattended", "\nfunction f() {\n x.y() }\nf()", 1, "",
         "w.js:3: ReferenceError: Can't find variable: x\n    f() at w.js:3\n    <global>() at w.js:4\n"},
        {"--unattended", "throw 'plain'", 1, "", "w.js:1: plain\n"},
        {"--unattended", "setTimeout(function() { x() }, 0); setTimeout(function() { print('on') }, 1)", 0,
         "on\n", "w.js:1: ReferenceError: "},
        {"--unattended", "getDirs('.', this, function() { throw new Error('boom') }); print('on')", 0, "on\n",
         "w.js:1: Error: boom\n"},
        {"--unattended",
         "var n = 0, t = setInterval(function(a) { print(a); if (++n == 2) clearInterval(t) }, 1, 'x')", 0,
         "x\nx\n", ""},
        {"--unattended", "clearTimeout(setTimeout(print, 1, 'never')); clearTimeout(99)", 0, "", ""},
        {"--unattended", "setTimeout('text', 1)", 1, "", "w.js:1: TypeError: setTimeout: "},
        {"--unattended", "getFiles(1)", 0, "", "[Error] getFiles: Invalid function arguments.\n"},
        {"--unattended --locale de", "getFiles(1)", 0, "",
         "[Error] getFiles: Ungültige Funktionsargumente.\n"},
        {"--unattended", "include('missing.js')", 1, "", "w.js:1: Error: include: missing.js: "},
        {"--unattended", "widget.close()", 1, "", "w.js:1: Error: This widget has no face: "},
        {"--unattended --screenshot p.png", "", 2, "", "holm: p.png: no picture, the widget has no window\n"},
        {"--unattended --timeout 0.2", "setInterval(function() {}, 10)", 124, "", "holm: the time is over\n"},
        {"--unattended --timeout 0.2", "while (true);", 124, "",
         "holm: the time is over, and the script still runs"},
        {"--unattended --plugin " LATECOMER_PLUGIN,
         "\nvar r = 'none';\ndialog(60000, function() { print('back') })", 0, "back\n",
         "[cancelled] Question, opened by w.js:3\n"},
        {"--unattended --plugin missing.so", "", 2, "", "holm: missing.so: there is no such plug-in\n"},
        {"--unattended --plugin w.js", "", 2, "", "holm: w.js: not a plug-in: '"},
        {"--unattended", "eval('x()')", 1, "", "w.js:1: ReferenceError: "},
        {"--unattended --timeout 0.0001", "setInterval(function() {}, 10)", 124, "",
         "holm: the time is over\n"},
        {"--unattended --plugin " OTHER_PLUGIN, "", 2, "",
         "holm: " OTHER_PLUGIN ": a plug-in of another interface, "},
        {"--unattended --device /proc/none", "", 2, "",
         "holm: /proc/none: the device folder cannot be made\n"},
        {"--unattended --app none", "", 2, "", "holm: none: there is no such application directory\n"},
        {"--unattended --locale xyzzy", "", 2, "", "holm: --locale: there is no locale \"xyzzy\"\n"},
        {"--timeout -1", "", 2, "",
         "holm: --timeout wants a number of seconds above 0 and below 2000000, not \"-1\"\n"},
        {"--unattended --debug", "", 2, "", "holm: --debug needs somebody"},
        {"--nonsense", "", 2, "", "holm: Unknown option 'nonsense'.\n"},
        {"missing", "", 2, "", "holm: missing: there is no such widget\n"},
        {"device", "", 2, "", "holm: device: there is no such widget\n"},
    };
    for (const Case &c : cases) {
        const HolmResult result = runScript(c.options, c.script);
        EXPECT_EQ(result.status, c.status) << c.options << ' ' << c.script << result.errors.toStdString();
        EXPECT_EQ(result.output.toStdString(), c.output) << c.options << ' ' << c.script;
        EXPECT_THAT(result.errors.toStdString(), StartsWith(c.errors)) << c.options << ' ' << c.script;
        EXPECT_EQ(result.errors.isEmpty(), *c.errors == '\0') << result.errors.toStdString();
    }
}

TEST(HolmRun, GivesTheScriptItsArgumentsAndItsOtherFiles)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("w/widget.js"),
               "(function() { include('parts/one.js'); })(); print(args.join('|'), two)");
    holm.write(QStringLiteral("w/parts/one.js"), "include('two.js');");
    holm.write(QStringLiteral("w/parts/two.js"), "var two = 2;");
    const HolmResult result = holm.run(words("--unattended w -style --help x"));
    EXPECT_EQ(result.output, QStringLiteral("-style|--help|x 2\n"));
    EXPECT_EQ(result.errors, QString());
    EXPECT_TRUE(QFile::exists(holm.path(QStringLiteral("device/My Documents/Welcome.txt"))));
}

TEST(HolmRun, ShowsTheFaceAndConnectsIt)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("w/widget.ui"), faceWithButton);
    holm.write(QStringLiteral("w/widget.js"), R"(
        var receiver = { name: "receiver", slot: function() { print("by name", this.name); x(); } };
        function clicked() { print("clicked", this === receiver, widget.picture.resource); }
        widget.button.clicked.connect(clicked);
        widget.button.clicked.connect(receiver, clicked);
        widget.button.clicked.connect(receiver, "slot");
        widget.button.clicked.connect(widget.button.hide);
        widget.button.click();
        print(widget.button.visible);
        widget.button.clicked.disconnect(clicked);
        widget.button.clicked.disconnect(receiver, "slot");
        widget.button.click();
        widget.button.clicked.disconnect(receiver, clicked);
        widget.button.click();
        setTimeout(function() { widget.close(); }, 1);)");
    for (const auto &[options, width] : {std::pair{"", 60}, {"--vga", 120}}) {
        const HolmResult result = holm.run(words(options) + words("--unattended --screenshot picture.png w"));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(
            result.output.toStdString(),
            "clicked false images/app/exe.png\nclicked true images/app/exe.png\nby name receiver\nfalse\n"
            "clicked true images/app/exe.png\n");
        EXPECT_THAT(result.errors.toStdString(), HasSubstr("widget.js:2: ReferenceError: "));
        const QImage picture(holm.path(QStringLiteral("picture.png")));
        EXPECT_EQ(picture.width(), width);
        EXPECT_EQ(picture.pixelColor(picture.width() - 1, picture.height() - 1), QColor(Qt::red));
    }
}

TEST(HolmRun, NamesTheFaceThatIsNone)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("w/widget.js"), "print('not reached')");
    for (const QByteArray &face : {QByteArray(), QByteArray("<ui"), QByteArray("<html/>")}) {
        holm.write(QStringLiteral("w/widget.ui"), face);
        const HolmResult result = holm.run(words("--unattended w"));
        EXPECT_EQ(result.status, 2) << face.constData();
        EXPECT_EQ(result.output, QString());
        EXPECT_THAT(result.errors.toStdString(), StartsWith("holm: w/widget.ui: ")) << face.constData();
    }
    QFile::remove(holm.path(QStringLiteral("w/widget.ui")));
    QFile::link(QStringLiteral("nowhere"), holm.path(QStringLiteral("w/widget.ui")));
    EXPECT_EQ(holm.run(words("--unattended w")).status, 2);
    QFile::remove(holm.path(QStringLiteral("w/widget.js")));
    EXPECT_EQ(holm.run(words("--unattended w")).errors,
              QStringLiteral("holm: w/widget.js: missing; a widget is a folder with a widget.js\n"));
}

TEST(HolmRun, WhatComesDueInADialogWaitsForTheCall)
{
    // The dialog closes by itself: nobody cancels it on a screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const HolmProcess holm;
    holm.write(QStringLiteral("w/widget.ui"), faceWithButton);
    holm.write(QStringLiteral("w/widget.js"), R"(
        bind(widget, function(ms) { print("event", ms); }, "late");
        var n = 0;
        widget.windowTitleChanged.connect(function() { print("signal", ++n); });
        function ask() {
            setTimeout(function() { print("timer"); }, 10);
            fireLater(30, "late");
            callLater(50, function(ms) { print("callback", ms); });
            setTimeout(function() { print("second timer"); dialog(1, function() { print("inner"); }); }, 70);
            fireLater(90, "late");
            print("before");
            dialog(200, function() { print("answer"); });
            widget.windowTitle = "now";
            print("after");
        }
        widget.button.clicked.connect(function() { ask(); print("handler done"); });
        widget.button.click();
        gc();
        print("script done");
        callLater(300, function() { print("last"); quit(0); });)");
    const HolmResult result = holm.run(words("--plugin " LATECOMER_PLUGIN " --timeout 20 w"));
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    EXPECT_EQ(result.output.toStdString(),
              "before\nanswer\nsignal 1\nafter\nhandler done\nscript done\n"
              "timer\nevent 30\ncallback 50\nsecond timer\ninner\nevent 90\nlast\n");
}

TEST(HolmRun, EndsOnASignal)
{
    for (const char *script :
         {"print('ready'); setInterval(function() {}, 1000)", "print('ready'); while (true);"}) {
        const HolmProcess holm;
        holm.write(QStringLiteral("w.js"), script);
        const auto process = holm.prepare(words("--unattended w.js"));
        process->start();
        ASSERT_TRUE(process->waitForReadyRead());
        kill(static_cast<pid_t>(process->processId()), SIGTERM);
        ASSERT_TRUE(process->waitForFinished()) << script;
        EXPECT_EQ(process->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process->exitCode(), 128 + SIGTERM);
    }
}

TEST(HolmRun, EndsWhenADialogThatIsTheFaceIsClosed)
{
    const HolmProcess holm;
    holm.write(QStringLiteral("w/widget.ui"),
               "<ui version='4.0'><class>D</class><widget class='QDialog' name='D'><property name='modal'>"
               "<bool>true</bool></property></widget></ui>");
    holm.write(QStringLiteral("w/widget.js"),
               "setTimeout(function() { print('still open'); widget.accept(); }, 100)");
    const HolmResult result = holm.run(words("--unattended w"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, QStringLiteral("still open\n"));
    EXPECT_EQ(result.errors, QString());
}
