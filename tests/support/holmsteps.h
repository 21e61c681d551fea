#pragma once

#include "support/holmprocess.h"

#include <gmock/gmock.h>
#include <vector>

/// One run of holm, and what it is to give.
struct HolmStep
{
    const char *commandLine; ///< arguments with bars between
    int status = 0;
    const char *output = "";
    const char *errors = ""; ///< what standard error begins with
};

/// Runs holm for one step after the other on the same device.
inline void expectSteps(const HolmProcess &holm, const std::vector<HolmStep> &steps)
{
    for (const HolmStep &step : steps) {
        const HolmResult result = holm.command(QString::fromUtf8(step.commandLine).split(QLatin1Char('|')));
        EXPECT_EQ(result.status, step.status) << step.commandLine << result.errors.toStdString();
        EXPECT_EQ(result.output.toStdString(), step.output) << step.commandLine;
        EXPECT_THAT(result.errors.toStdString(), testing::StartsWith(step.errors)) << step.commandLine;
        EXPECT_EQ(result.errors.isEmpty(), *step.errors == '\0') << result.errors.toStdString();
    }
}
