#pragma once

#include <string>
#include <utility>
#include <variant>

namespace document {

/// Why something could not be done: names the file, says what is wrong and what can be done. UTF-8, ready to be shown.
struct Failure {
    std::string message;
    bool cancelled = false; ///< the user stopped it; nothing to complain about
};

/// A value, or the reason why there is none.
template <class Value>
class Result {
public:
    Result(Value value) : content_(std::move(value)) {}
    Result(Failure failure) : content_(std::move(failure)) {}

    explicit operator bool() const { return content_.index() == 0; }

    /// Only when there is a value.
    Value& operator*() { return std::get<0>(content_); }
    const Value& operator*() const { return std::get<0>(content_); }
    Value* operator->() { return &std::get<0>(content_); }
    const Value* operator->() const { return &std::get<0>(content_); }

    /// Only when there is none.
    const Failure& failure() const { return std::get<1>(content_); }

private:
    std::variant<Value, Failure> content_;
};

}
