#pragma once

#include <QFontDatabase>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace quillmarker
{

enum class FontKind : std::uint8_t { Every, Scalable };

/// The face names that users are offered, in alphabetical order: of the installed families that have the letters of a
/// writing system, and those that are shown in a metric twin among them.
QStringList OfferedFamilies(QFontDatabase::WritingSystem system = QFontDatabase::Any, FontKind kind = FontKind::Every);

/// The installed family that a face name is shown in: its own or a metric twin. Empty when there is none.
QString ShownFamily(const QString& name);

/// Where a family stands in a list; -1 when it does not. Case is no difference.
qsizetype IndexOfFamily(const QStringList& families, const QString& name);

}  // namespace quillmarker
