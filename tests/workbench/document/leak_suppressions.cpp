// The library that ITK writes NIfTI with forgets the names of its files. What a leak checker says of it tells nothing
// about us.
extern "C" const char* __lsan_default_suppressions();

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libITKniftiio\n";
}
