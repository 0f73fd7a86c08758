#pragma once

#include <optional>
#include <string>
#include <utility>

namespace quillmarker::tool
{

/// Why something could not be done, as a line for people: it names what it is about.
struct Failure
{
    std::string message;
};

/// A value, or why there is none; a function returns either as it is.
template <class T>
class Result
{
public:
    Result(T value) : m_value(std::move(value)) {}                      // NOLINT(google-explicit-constructor)
    Result(Failure failure) : m_message(std::move(failure.message)) {}  // NOLINT(google-explicit-constructor)

    explicit operator bool() const { return m_value.has_value(); }
    const T& operator*() const { return *m_value; }
    const T* operator->() const { return &*m_value; }
    T& operator*() { return *m_value; }
    const std::string& Message() const { return m_message; }

private:
    std::optional<T> m_value;
    std::string m_message;
};

}  // namespace quillmarker::tool
