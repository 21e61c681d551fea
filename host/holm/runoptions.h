#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <chrono>

/// The command line of "holm run".
struct RunOptions
{
    QString device; ///< empty: the usual one
    QString applicationDirectory;
    QStringList plugins;
    QString locale; ///< empty: the system's
    bool vga = false;
    bool unattended = false;
    QString robot; ///< the robot's script; empty: none
    std::chrono::milliseconds timeout{0}; ///< 0: none
    QString screenshot; ///< empty: none
    bool debug = false;
    bool watch = false;

    QString script;
    QString form; ///< empty: the widget has no face
    QStringList arguments;

    bool help = false;
    QString error; ///< what is wrong with the command line, in plain words; else empty

    /// Reads what follows "holm run". Checks that the widget is there, and that a robot's script can be read.
    static RunOptions parse(const QStringList &commandLine);

    static QString helpText();
};
