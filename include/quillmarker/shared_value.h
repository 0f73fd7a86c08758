#pragma once

#include <memory>
#include <string>
#include <utility>

namespace quillmarker
{

/// An immutable value that copies share. Two are equal when what they hold is equal; an empty one holds nothing and
/// is equal only to another empty one. Keeps formats small where most of them have nothing of the kind.
template <class T>
class Shared
{
public:
    Shared() = default;
    explicit Shared(T value) : m_value(std::make_shared<const T>(std::move(value))) {}

    explicit operator bool() const { return m_value != nullptr; }
    const T& operator*() const { return *m_value; }
    const T* operator->() const { return m_value.get(); }
    const T* Identity() const { return m_value.get(); }

    friend bool operator==(const Shared& a, const Shared& b)
    {
        return a.m_value == b.m_value || (a.m_value && b.m_value && *a.m_value == *b.m_value);
    }

private:
    std::shared_ptr<const T> m_value;
};

/// A name held once and shared: of a font, a style. An empty name is an empty Name.
class Name
{
public:
    Name() = default;
    Name(std::u16string text)  // NOLINT(google-explicit-constructor): a text is a name
        : m_text(text.empty() ? Shared<std::u16string>() : Shared(std::move(text)))
    {
    }
    Name(const char16_t* text) : Name(std::u16string(text)) {}  // NOLINT(google-explicit-constructor)

    bool IsEmpty() const { return !m_text; }
    const std::u16string& Text() const
    {
        static const std::u16string empty;
        return m_text ? *m_text : empty;
    }

    bool operator==(const Name&) const = default;

private:
    Shared<std::u16string> m_text;
};

}  // namespace quillmarker
