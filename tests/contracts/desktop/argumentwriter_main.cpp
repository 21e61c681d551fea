#include "contracts/argumentwriter.h"

// A program that tells how it was started.
int main(int count, char **arguments)
{
    contracts::writeArguments({arguments, arguments + count});
}
