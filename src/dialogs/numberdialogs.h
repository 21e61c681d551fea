#pragma once

class FunctionArguments;

/// What the user answered to numInput(); @c value also counts if the dialog was cancelled.
struct NumberAnswer
{
    bool ok;
    int value;
};

/// Asks for a whole number. The arguments are those of numInput(), checked.
NumberAnswer askWholeNumber(const FunctionArguments &arguments);

/// Asks for a number with decimals; the answer is cut to a whole one.
NumberAnswer askFraction(const FunctionArguments &arguments);
