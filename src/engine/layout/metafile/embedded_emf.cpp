#include "embedded_emf.h"

#include "byte_reader.h"

namespace quillmarker::metafile
{
namespace
{

constexpr std::uint32_t kEscape = 0x0626;
constexpr std::uint32_t kComment = 15;
constexpr std::uint32_t kCommentMark = 0x43464D57;  // "WMFC"
constexpr std::uint32_t kPieceOfEmf = 1;
constexpr std::size_t kRecordHead = 6;

struct Piece
{
    std::size_t left = 0;  // of the whole, behind this piece
    std::size_t whole = 0;
    std::string_view bytes;
};

std::optional<Piece> ReadPiece(ByteReader record)
{
    const std::uint32_t escape = record.U16();
    record.Skip(2);
    const std::uint32_t mark = record.U32();
    const std::uint32_t kind = record.U32();
    record.Skip(4 + 2 + 4 + 4);  // version, checksum, flags, number of pieces
    const std::size_t size = record.U32();
    Piece piece{.left = record.U32()};
    piece.whole = record.U32();
    piece.bytes = record.Bytes(size);
    if (record.HasFailed() || escape != kComment || mark != kCommentMark || kind != kPieceOfEmf)
        return std::nullopt;
    return piece;
}

}  // namespace

std::optional<std::string> EmbeddedEmf(std::string_view bytes, const WmfHeader& header)
{
    std::string found;
    ByteReader reader(bytes);
    reader.MoveTo(header.size);
    while (reader.Left() >= kRecordHead)
    {
        const std::uint64_t size = std::uint64_t{reader.U32()} * 2;
        const std::uint32_t number = reader.U16();
        if (size < kRecordHead || size - kRecordHead > reader.Left())
            return std::nullopt;
        const ByteReader record(reader.Bytes(static_cast<std::size_t>(size - kRecordHead)));
        const std::optional<Piece> piece = number == kEscape ? ReadPiece(record) : std::nullopt;
        if (!piece)
            continue;
        found += piece->bytes;
        if (piece->left == 0)
            return found.size() == piece->whole ? std::optional(std::move(found)) : std::nullopt;
    }
    return std::nullopt;
}

}  // namespace quillmarker::metafile
