#pragma once

/// What holm ends with, unless the script's quit(code) says otherwise.
namespace ExitStatus {
constexpr int ok = 0;
constexpr int scriptError = 1;
/// A command could not do what it was told to.
constexpr int failed = 1;
/// Wrong command line, or something missing without which a run cannot start.
constexpr int cannotStart = 2;
/// A dialog was left open by the robot that was to answer it.
constexpr int unanswered = 3;
/// The status that timeout(1) uses.
constexpr int timedOut = 124;
/// Added to the number of the signal that ended the run, as shells do.
constexpr int signalBase = 128;
} // namespace ExitStatus
