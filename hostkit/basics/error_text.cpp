#include "host/basics.h"

#include <cwchar>

const wchar_t* Error_Perror(int errno_value)
{
    return _wcserror(errno_value);
}
