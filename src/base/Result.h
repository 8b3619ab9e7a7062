#pragma once
// The host's one error style: a value, or a message for the user that says what went
// wrong and what to do. Shaped like std::expected, which this compiler does not have yet.
#include <cassert>
#include <string>
#include <utility>
#include <variant>

namespace ardo {

// The failure side of a Result: `return Error{"Cannot open ..."};`.
struct Error {
    std::string message;
};

template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
    Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

    bool ok() const { return state_.index() == 0; }
    explicit operator bool() const { return ok(); }

    T& value() & { assert(ok()); return std::get<0>(state_); }
    const T& value() const& { assert(ok()); return std::get<0>(state_); }
    T&& value() && { assert(ok()); return std::get<0>(std::move(state_)); }
    T& operator*() & { return value(); }
    const T& operator*() const& { return value(); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }

    const std::string& error() const { assert(!ok()); return std::get<1>(state_).message; }

private:
    std::variant<T, Error> state_;
};

// Success with nothing to hand back, or the message.
template <>
class [[nodiscard]] Result<void> {
public:
    Result() = default;
    Result(Error error) : error_(std::move(error.message)), failed_(true) {}

    bool ok() const { return !failed_; }
    explicit operator bool() const { return ok(); }
    const std::string& error() const { assert(failed_); return error_; }

private:
    std::string error_;
    bool failed_ = false;
};

using Status = Result<void>;

}  // namespace ardo
