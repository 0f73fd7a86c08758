#pragma once

#include <QString>

#include <array>

namespace quillmarker::desk
{

// The context numbers by which a topic is asked for.
inline constexpr int kOverviewTopic = 0;
inline constexpr int kToolbarTopic = 1;
inline constexpr int kFontsTopic = 12897;  // told by the control's own messages

/// A page of the help; title and text (HTML without colours, so that any palette suits it) are to be translated.
struct HelpTopic
{
    int context = kOverviewTopic;
    const char* title = "";
    const char* text = "";

    QString Title() const;
    QString Text() const;

    static const std::array<HelpTopic, 3> kAll;
};

/// The row of the topic with that number; of a number that no topic has, the overview's.
int RowOfTopic(int context);

}  // namespace quillmarker::desk
