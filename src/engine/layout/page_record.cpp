#include "page_record.h"

#include "display_fields.h"

#include <QCryptographicHash>

#include <algorithm>
#include <map>
#include <tuple>
#include <type_traits>
#include <utility>

namespace quillmarker
{
namespace
{

using namespace std::string_view_literals;

// A page file: signature, version, checksum of all that follows, then the fields of a Page.
constexpr auto kSignature = "\x89QMPAGE\n"sv;
constexpr std::uint32_t kVersion = 1;
constexpr auto kChecksum = QCryptographicHash::Blake2b_160;
constexpr std::size_t kChecksumSize = 20;
// Each face may cost a search in the system's fonts.
constexpr std::size_t kMostFaces = 4096;
constexpr std::size_t kHeadSize = kSignature.size() + sizeof(kVersion) + kChecksumSize;

enum class ObjectKind : std::uint8_t { None, Picture, EmbeddedObject, Note };

/// A picture with its bytes in a table of their own. Of other objects only the kind is kept: they are placeholders.
struct RecordedObject
{
    ObjectKind kind = ObjectKind::None;
    InlinePicture picture;
    std::uint32_t bytes = 0;  // index; kNoBytes: the picture has none
};
constexpr std::uint32_t kNoBytes = 0xFFFFFFFF;

/// What is placed where; the object by its index.
struct RecordedPlace
{
    QRectF rectangle;
    std::uint32_t object = 0;
};

template <class Archive, MaybeConst<RecordedObject> T>
void Fields(Archive& archive, T& object)
{
    auto& picture = object.picture;
    archive(object.kind);
    if (object.kind == ObjectKind::Picture)
        archive(picture.kind, picture.mapping, picture.width, picture.height, picture.goalWidth, picture.goalHeight,
                picture.scaleX, picture.scaleY, picture.cropLeft, picture.cropTop, picture.cropRight,
                picture.cropBottom, picture.kept, object.bytes);
}

template <class Archive, MaybeConst<RecordedPlace> T>
void Fields(Archive& archive, T& place)
{
    archive(place.rectangle, place.object);
}

using RecordedItem =
    std::variant<GlyphRun, FilledRectangle, TextLine, BorderLine, RecordedPlace, BeginClip, EndClip, LinkArea>;
static_assert(std::variant_size_v<RecordedItem> == std::variant_size_v<DisplayItem>);

struct RecordedPage
{
    Twips width;
    Twips height;
    std::vector<FaceIdentity> faces;
    std::vector<std::string> bytes;
    std::vector<RecordedObject> objects;
    std::vector<RecordedItem> items;
};

// Makes the alternative with a number; false when there is none.
template <std::size_t kIndex = 0>
bool Emplace(RecordedItem& item, std::size_t number)
{
    if constexpr (kIndex < std::variant_size_v<RecordedItem>)
    {
        if (number != kIndex)
            return Emplace<kIndex + 1>(item, number);
        item.emplace<kIndex>();
        return true;
    }
    return false;
}

template <class Archive, MaybeConst<RecordedItem> T>
void Fields(Archive& archive, T& item)
{
    auto number = static_cast<std::uint8_t>(item.index());
    archive(number);
    if constexpr (Archive::kReads)
    {
        if (!Emplace(item, number))
            return archive.Refuse();
    }
    std::visit([&](auto& alternative) { archive(alternative); }, item);
}

template <class Archive, MaybeConst<RecordedPage> T>
void Fields(Archive& archive, T& page)
{
    archive(page.width, page.height, page.faces, page.bytes, page.objects, page.items);
}

}  // namespace

template <>
inline constexpr ObjectKind kLastOf<ObjectKind> = ObjectKind::Note;

namespace
{

/// Numbers what several items may share by its identity.
class ObjectTable
{
public:
    explicit ObjectTable(RecordedPage& page) : m_page(page) {}

    std::uint32_t IndexOf(const Shared<InlineObject>& object)
    {
        const auto [entry, isNew] =
            m_objects.try_emplace(object.Identity(), static_cast<std::uint32_t>(m_page.objects.size()));
        if (isNew)
            m_page.objects.push_back(Recorded(object));
        return entry->second;
    }

private:
    RecordedObject Recorded(const Shared<InlineObject>& object)
    {
        if (!object)
            return {};
        const auto* picture = std::get_if<InlinePicture>(&*object);
        if (picture == nullptr)
            return {.kind = std::holds_alternative<Note>(*object) ? ObjectKind::Note : ObjectKind::EmbeddedObject};
        RecordedObject recorded = {ObjectKind::Picture, *picture, BytesIndex(picture->bytes)};
        recorded.picture.bytes = {};
        return recorded;
    }

    std::uint32_t BytesIndex(const Shared<std::string>& bytes)
    {
        if (!bytes)
            return kNoBytes;
        const auto [entry, isNew] =
            m_bytes.try_emplace(std::string_view(*bytes), static_cast<std::uint32_t>(m_page.bytes.size()));
        if (isNew)
            m_page.bytes.push_back(*bytes);
        return entry->second;
    }

    RecordedPage& m_page;
    std::map<const InlineObject*, std::uint32_t> m_objects;
    std::map<std::string_view, std::uint32_t> m_bytes;  // by what they are: two pictures may hold copies
};

RecordedPage Recorded(const PageRecord& record)
{
    RecordedPage page = {.width = record.width, .height = record.height};
    for (const FontFace* face : record.list.faces)
        page.faces.push_back(face->Identity());
    ObjectTable objects(page);
    for (const DisplayItem& item : record.list.items)
    {
        page.items.push_back(std::visit(
            [&]<class Item>(const Item& value) -> RecordedItem {
                if constexpr (std::is_same_v<Item, PlacedPicture>)
                    return RecordedPlace{value.rectangle, objects.IndexOf(value.object)};
                else
                    return value;
            },
            item));
    }
    return page;
}

// What stands in front of a body.
std::string Head(std::string_view body)
{
    QCryptographicHash hash(kChecksum);
    hash.addData(QByteArrayView(body.data(), static_cast<qsizetype>(body.size())));
    RecordWriter version;
    version(kVersion);
    return std::string(kSignature) + version.Take() + hash.result().toStdString();
}

std::optional<RecordedPage> Parsed(std::string_view body)
{
    RecordReader reader(body);
    RecordedPage page;
    reader(page);
    if (!reader.IsWhole() || !reader.IsAtEnd())
        return std::nullopt;
    return page;
}

bool IsPossible(const FaceIdentity& face) { return face.weight >= 1 && face.weight <= 1000; }

// The numbers of glyphs mean nothing in another face. Where a run has a glyph for each unit of its text, the face that
// stands in shows its own, in the same places.
void SetAgain(GlyphRun& run, const FontFace& face)
{
    const std::size_t count = run.glyphs.size();
    if (count != run.text.size())
        return;
    for (std::size_t i = 0; i < count; ++i)
    {
        const SimpleGlyph own = face.Simple(run.text[i]);
        if (own.isSimple)
            run.glyphs[run.rightToLeft ? count - 1 - i : i].glyph = own.glyph;
    }
}

using Bytes = std::vector<Shared<std::string>>;
using Objects = std::vector<Shared<InlineObject>>;

// Each false when something names what is not there.
bool Restore(std::vector<RecordedObject>& recorded, const Bytes& bytes, Objects& objects)
{
    for (RecordedObject& object : recorded)
    {
        if (object.kind == ObjectKind::None)
            objects.emplace_back();
        else if (object.kind == ObjectKind::EmbeddedObject)
            objects.emplace_back(EmbeddedObject());
        else if (object.kind == ObjectKind::Note)
            objects.emplace_back(Note());
        else if (object.bytes != kNoBytes && object.bytes >= bytes.size())
            return false;
        else
        {
            object.picture.bytes = object.bytes == kNoBytes ? Shared<std::string>() : bytes[object.bytes];
            objects.emplace_back(std::move(object.picture));
        }
    }
    return true;
}

bool Restore(std::vector<RecordedItem>& recorded, const std::vector<FaceIdentity>& faces, const Objects& objects,
             DisplayList& list)
{
    list.items.reserve(recorded.size());
    for (RecordedItem& item : recorded)
    {
        if (const auto* place = std::get_if<RecordedPlace>(&item))
        {
            if (place->object >= objects.size())
                return false;
            list.Add(PlacedPicture{place->rectangle, objects[place->object]});
            continue;
        }
        if (auto* run = std::get_if<GlyphRun>(&item))
        {
            if (run->face >= list.faces.size())
                return false;
            if (list.faces[run->face]->Identity() != faces[run->face])
                SetAgain(*run, *list.faces[run->face]);
        }
        std::visit(
            [&]<class Item>(Item& value) {
                if constexpr (!std::is_same_v<Item, RecordedPlace>)
                    list.Add(std::move(value));
            },
            item);
    }
    return true;
}

}  // namespace

std::string SealedPage(std::string_view body) { return Head(body).append(body); }

std::string ToBytes(const PageRecord& record)
{
    RecordWriter writer;
    writer(Recorded(record));
    return SealedPage(writer.Take());
}

std::optional<PageRecord> PageFromBytes(std::string_view bytes, FontHost& fonts)
{
    if (bytes.size() < kHeadSize)
        return std::nullopt;
    const std::string_view body = bytes.substr(kHeadSize);
    if (bytes.substr(0, kHeadSize) != Head(body))
        return std::nullopt;
    std::optional<RecordedPage> page = Parsed(body);
    if (!page || page->faces.size() > kMostFaces || !std::ranges::all_of(page->faces, IsPossible))
        return std::nullopt;

    PageRecord record = {.width = page->width, .height = page->height};
    for (const FaceIdentity& face : page->faces)
        record.list.faces.push_back(&fonts.Face(face));
    Bytes pictureBytes;
    for (std::string& one : page->bytes)
        pictureBytes.emplace_back(std::move(one));
    Objects objects;
    if (!Restore(page->objects, pictureBytes, objects) || !Restore(page->items, page->faces, objects, record.list))
        return std::nullopt;
    return record;
}

}  // namespace quillmarker
