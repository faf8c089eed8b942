#pragma once

/// Lets allocations fail: linked into a test program, this replaces the `operator new` that does not throw, and with
/// failing_c_memory.cpp what the C library gives.
namespace test {

/// How many more nothrow allocations succeed before one fails, once. Negative: none fails.
extern int successes_before_failure;

/// Counts an allocation. @return whether it is the one that is due to fail
bool Allocation_Fails();

/// The n-th of these allocations from here fails, for as long as this lives.
class Failing_New {
public:
    explicit Failing_New(int n) { successes_before_failure = n - 1; }
    ~Failing_New() { successes_before_failure = -1; }
    Failing_New(const Failing_New&) = delete;
    Failing_New& operator=(const Failing_New&) = delete;

    /// Whether the n-th allocation has come.
    bool has_failed() const { return successes_before_failure < 0; }
};

}
