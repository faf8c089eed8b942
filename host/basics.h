#pragma once

#include "platform/windows_api.h"

#ifdef BASICS_BUILD
#define BASICS_API VETRA_EXPORT
#else
#define BASICS_API VETRA_IMPORT
#endif

// The host's utility library, as far as the panels call it. A host supplies it as the library `Basics`.

/// The host's main window; panels name it in every report. May be null.
BASICS_API extern HWND hwnd;

/// How much of the program's inner life is reported: a report of level 10 + k is shown when this is k or more.
/// Starts at -1, which shows no notices, details or traces. Signed on every platform.
BASICS_API extern signed char Flag_Trace;

/// The folder of the program's icon files, UTF-8, ending in a separator. Never null. At first "icons/" beside the
/// running program or, when there is none, beside the folder that it is in. The program may set another one; the text
/// is the program's and must stay.
BASICS_API extern const char* Prog_Name;

/// Splits a path: the directory up to and including its last separator ('/', on Windows '\\' as well), the name without
/// its extension, and the extension with its dot; one after the other they are the path again. A dot that the name
/// begins with begins no extension. Each part has room for strlen(path) + 1 bytes; a null path is empty.
BASICS_API void Get_Generic_Name(const char* path, char* directory, char* base_name, char* extension);

/// Reports something to the user, the log or the developer.
///
/// @param window  the window that the report belongs to, or null
/// @param level   1 memory failure, 2 warning to the user, 4 progress, 10 to 12 notices and details, 14 to 17 traces
/// @param format  as for printf, UTF-8; may carry the markup bytes 0xF1 followed by a colour number (a coloured line)
///                and 0x01 and 0x02 (emphasis on and off), which whoever shows the text renders or strips
/// @return 1 when the report was shown, else 0
BASICS_API int Error_Fct(HWND window, int level, const char* format, ...) VETRA_PRINTF(3, 4);

/// Reports a window message by its name, "PROCEDURE: WM_PAINT"; one that has none by its number, "PROCEDURE: 0x0400".
/// @param level as for Error_Fct @return as Error_Fct
BASICS_API int SystMessage_Stool(int level, const char* procedure, HWND window, UINT message);

/// The text of a C library error (a value of errno), in English and ASCII whatever the locale. Never null; the text
/// stays until the next call.
BASICS_API const wchar_t* Error_Perror(int errno_value);

// ------------------------------------------------------------------------------------------- vectors, matrices

/// A position in four numbers: x, y, z, t.
struct Vector_4 {
    float x = 0;
    float y = 0;
    float z = 0;
    float t = 0;
};

/// A vector of doubles. Copies are copies. Nothing throws: where memory runs out the vector is empty.
class BASICS_API Vector_N {
public:
    /// `count` zeros. @param element_size  bytes an element; the elements are doubles whatever it says
    Vector_N(unsigned count, unsigned char element_size);
    Vector_N(const Vector_N&);
    Vector_N(Vector_N&&) noexcept;
    Vector_N& operator=(const Vector_N&);
    Vector_N& operator=(Vector_N&&) noexcept;
    ~Vector_N();

    double& operator[](int index) { return elements_[index]; }
    const double& operator[](int index) const { return elements_[index]; }

    /// Adds element by element. Both should be of one size; else what they have in common is added.
    Vector_N& operator+=(const Vector_N&);

    unsigned Size() const { return size_; }

private:
    double* elements_ = nullptr;
    unsigned size_ = 0;
};

class Matrix_Storage;

/// A matrix of doubles. Nothing throws: what cannot be computed, or has no memory, is an invalid matrix, and so is
/// everything computed from one.
///
/// Copies and transposes cost nothing: they share the elements until one of them is asked for a row. A matrix and
/// what shares with it belong to one thread.
class BASICS_API Matrix_NxM {
public:
    /// `rows` rows of `columns` zeros. Rows that are never asked for cost no memory worth speaking of and next to no
    /// time. @param element_size  bytes an element; the elements are doubles whatever it says
    Matrix_NxM(unsigned columns, unsigned rows, unsigned char element_size);
    Matrix_NxM(const Matrix_NxM&);
    Matrix_NxM(Matrix_NxM&&) noexcept;
    Matrix_NxM& operator=(const Matrix_NxM&);
    Matrix_NxM& operator=(Matrix_NxM&&) noexcept;
    ~Matrix_NxM();

    /// The elements of one row, to read and to write; of this row alone: each row that is written must be asked for.
    /// Good until the matrix is used in any other way. Null when the matrix is invalid, or becomes so for want of
    /// memory.
    double* operator[](int row);

    /// The transpose.
    Matrix_NxM operator~() const;

    /// The inverse. Invalid when the matrix is not square, holds something that is not finite, or is singular to
    /// double precision however its rows and columns are scaled. The inverse of the empty matrix is empty.
    Matrix_NxM operator!() const;

    /// 1 for an invalid matrix, else 0.
    int Invalid() const;

    /// The product; invalid when the sizes do not fit. `~A * A` costs only what A has besides zeros.
    friend BASICS_API Matrix_NxM operator*(const Matrix_NxM&, const Matrix_NxM&);

    /// The product; empty when the sizes do not fit or the matrix is invalid.
    friend BASICS_API Vector_N operator*(const Matrix_NxM&, const Vector_N&);

private:
    explicit Matrix_NxM(Matrix_Storage* storage);

    Matrix_Storage* storage_; // null: invalid
    bool transposed_ = false;
};
