#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>
#include <QtEndian>

#include <cmath>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace quillmarker
{

// A record is a row of fields without names. `Fields(archive, value)` names the fields of a type once, in order, by
// calling the archive with them; the same list writes and reads. Numbers are little-endian, texts, bytes and rows have
// their count in front.

/// Of an enumeration, its last value: a larger one is damage. Every enumeration that is recorded has one.
template <class Enum>
constexpr Enum kLastOf = Enum{};

/// A coordinate that is further away is damage.
constexpr double kFurthest = 1e9;

template <class T, class Of>
concept MaybeConst = std::same_as<std::remove_const_t<T>, Of>;

template <class Archive, MaybeConst<QPointF> T>
void Fields(Archive& archive, T& point)
{
    if constexpr (Archive::kReads)
    {
        double x = 0;
        double y = 0;
        archive(x, y);
        point = QPointF(x, y);
    }
    else
        archive(point.x(), point.y());
}

template <class Archive, MaybeConst<QRectF> T>
void Fields(Archive& archive, T& rectangle)
{
    if constexpr (Archive::kReads)
    {
        double x = 0;
        double y = 0;
        double width = 0;
        double height = 0;
        archive(x, y, width, height);
        rectangle = QRectF(x, y, width, height);
    }
    else
        archive(rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height());
}

class RecordWriter
{
public:
    static constexpr bool kReads = false;

    template <class... T>
    void operator()(const T&... values)
    {
        (Put(values), ...);
    }

    std::string Take() { return std::move(m_bytes); }

private:
    template <class T>
    requires std::integral<T> || std::floating_point<T>
    void Put(T number)
    {
        char bytes[sizeof(T)];
        qToLittleEndian(number, bytes);
        m_bytes.append(bytes, sizeof(T));
    }

    template <class T>
    requires std::is_enum_v<T>
    void Put(T value) { Put(static_cast<std::uint8_t>(value)); }

    void Put(bool value) { Put(static_cast<std::uint8_t>(value ? 1 : 0)); }
    void Put(const std::string& bytes) { PutRow(bytes); }
    void Put(const std::u16string& text) { PutRow(text); }
    void Put(const QString& text) { PutRow(text.toStdU16String()); }

    template <class T>
    void Put(const std::vector<T>& values)
    {
        PutRow(values);
    }

    template <class T>
    requires std::is_class_v<T>
    void Put(const T& value) { Fields(*this, value); }

    template <class Row>
    void PutRow(const Row& row)
    {
        Put(static_cast<std::uint64_t>(row.size()));
        if constexpr (std::same_as<Row, std::string>)
            m_bytes += row;
        else
        {
            for (const auto& value : row)
                Put(value);
        }
    }

    std::string m_bytes;
};

/// Reads what a RecordWriter wrote. What is damaged gives values of no meaning, and IsWhole says so from then on.
class RecordReader
{
public:
    static constexpr bool kReads = true;

    explicit RecordReader(std::string_view bytes) : m_rest(bytes) {}

    template <class... T>
    void operator()(T&... values)
    {
        (Take(values), ...);
    }

    bool IsWhole() const { return m_isWhole; }
    bool IsAtEnd() const { return m_rest.empty(); }
    void Refuse()
    {
        m_isWhole = false;
        m_rest = {};
    }

private:
    template <class T>
    requires std::integral<T> || std::floating_point<T>
    void Take(T& number)
    {
        number = 0;
        if (m_rest.size() < sizeof(T))
            return Refuse();
        number = qFromLittleEndian<T>(m_rest.data());
        m_rest.remove_prefix(sizeof(T));
        if constexpr (std::floating_point<T>)
        {
            if (!(std::abs(number) <= static_cast<T>(kFurthest)))
                number = 0, Refuse();
        }
    }

    template <class T>
    requires std::is_enum_v<T>
    void Take(T& value)
    {
        std::uint8_t number = 0;
        Take(number);
        if (number > static_cast<std::uint8_t>(kLastOf<T>))
            return Refuse();
        value = static_cast<T>(number);
    }

    void Take(bool& value)
    {
        std::uint8_t number = 0;
        Take(number);
        if (number > 1)
            Refuse();
        value = number == 1;
    }

    void Take(std::string& bytes)
    {
        const std::size_t count = TakeCount(1);
        bytes = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
    }
    void Take(std::u16string& text) { TakeRow(text, sizeof(char16_t)); }
    void Take(QString& text)
    {
        std::u16string units;
        Take(units);
        text = QString::fromStdU16String(units);
    }

    template <class T>
    void Take(std::vector<T>& values)
    {
        TakeRow(values, 1);
    }

    template <class T>
    requires std::is_class_v<T>
    void Take(T& value) { Fields(*this, value); }

    // A row whose elements have `least` bytes or more; none when so many do not fit in what is left.
    std::size_t TakeCount(std::size_t least)
    {
        std::uint64_t count = 0;
        Take(count);
        if (count <= m_rest.size() / least)
            return static_cast<std::size_t>(count);
        Refuse();
        return 0;
    }

    template <class Row>
    void TakeRow(Row& row, std::size_t least)
    {
        row.clear();
        for (std::size_t left = TakeCount(least); left > 0 && m_isWhole; --left)
        {
            row.push_back({});
            Take(row.back());
        }
    }

    std::string_view m_rest;
    bool m_isWhole = true;
};

}  // namespace quillmarker
