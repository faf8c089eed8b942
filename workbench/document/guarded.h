#pragma once

#include "workbench/document/result.h"
#include "workbench/document/text.h"

#include <exception>
#include <filesystem>
#include <new>

namespace document {

/// Runs an action that returns a failure or a result; no exception leaves it.
template <class Outcome, class Action>
Outcome guarded(const std::filesystem::path& path, Action&& action)
{
    try {
        return action();
    } catch (const std::bad_alloc&) {
        return Failure{"There is not enough memory for " + quoted(path) + ". Close other programs first."};
    } catch (const std::exception& error) {
        return Failure{quoted(path) + ": " + error.what() + "."};
    }
}

}
