// A library that exports nothing that anybody asks of it, but for the ordinal of one function.
extern "C" int nothing()
{
    return -1;
}
