#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

namespace quillmarker
{

/// A counted reference to an immutable object that counts its own references (AddRef, Release). Unlike a shared_ptr
/// it is one pointer wide, since trees hold very many of them.
template <class T>
class Ref
{
public:
    Ref() = default;
    explicit Ref(T* object) : m_object(object)
    {
        if (m_object)
            m_object->AddRef();
    }
    Ref(const Ref& other) : Ref(other.m_object) {}
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Ref& operator=(Ref other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~Ref()
    {
        if (m_object)
            m_object->Release();
    }

    /// Takes over a reference that was already counted.
    static Ref Adopt(T* object)
    {
        Ref ref;
        ref.m_object = object;
        return ref;
    }

    explicit operator bool() const { return m_object != nullptr; }
    T& operator*() const { return *m_object; }
    T* operator->() const { return m_object; }
    T* Identity() const { return m_object; }
    bool operator==(const Ref&) const = default;  // identity

private:
    T* m_object = nullptr;
};

/// The count itself, safe to share between threads; an object is born with one reference.
class RefCount
{
public:
    void Add() const { m_count.fetch_add(1, std::memory_order_relaxed); }
    [[nodiscard]] bool DropWasLast() const
    {
        return m_count.load(std::memory_order_acquire) == 1 || m_count.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

private:
    mutable std::atomic<std::uint32_t> m_count{1};
};

}  // namespace quillmarker
