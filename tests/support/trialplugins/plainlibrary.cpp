/// A library that is no plug-in.
extern "C" int plainLibraryFunction()
{
    return 1;
}
