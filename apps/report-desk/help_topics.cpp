#include "help_topics.h"

#include <QCoreApplication>

#include <algorithm>

namespace quillmarker::desk
{
namespace
{

constexpr const char* kContext = "HelpTopics";

constexpr const char* kOverview = QT_TRANSLATE_NOOP("HelpTopics", R"(
<h2>Report Desk</h2>
<p>Report Desk edits rich-text reports. A report is opened, changed and saved as a file in Rich Text Format (.rtf); plain
text (.txt) is opened and saved too, without fonts, tables and pictures.</p>
<h3>Writing</h3>
<p>Type where the caret stands. Select text with the mouse, or with Shift and the arrow keys; what you choose on the toolbar
then applies to the selection. Without a selection it applies to what you type next.</p>
<h3>Keys</h3>
<table cellspacing="0" cellpadding="3">
<tr><td><b>Ctrl+N</b>, <b>Ctrl+O</b>, <b>Ctrl+S</b></td><td>New, open, save</td></tr>
<tr><td><b>Ctrl+Z</b>, <b>Ctrl+Y</b></td><td>Undo, redo</td></tr>
<tr><td><b>Ctrl+X</b>, <b>Ctrl+C</b>, <b>Ctrl+V</b></td><td>Cut, copy, paste</td></tr>
<tr><td><b>Ctrl++</b>, <b>Ctrl+-</b>, <b>Ctrl+0</b></td><td>Zoom in, zoom out, actual size</td></tr>
<tr><td><b>F1</b></td><td>This help</td></tr>
<tr><td><b>Esc</b></td><td>Closes this window</td></tr>
</table>
<h3>View</h3>
<p>The View menu shows and hides the toolbar, the ruler and the status bar, and chooses the unit of the ruler.</p>
)");

// Called by what the buttons' tips say, so that a user finds the line.
constexpr const char* kToolbar = QT_TRANSLATE_NOOP("HelpTopics", R"(
<h2>The toolbar</h2>
<p>Point at a button to see its name. In a narrow window, the arrow at the end of the toolbar opens a menu with the buttons
that have no room. The two lists on the left show the font and the size at the caret, and change them.</p>
<table cellspacing="0" cellpadding="3">
<tr><td><b>New Document</b></td><td>Begins an empty report</td></tr>
<tr><td><b>Open document</b></td><td>Opens a file in place of the report</td></tr>
<tr><td><b>Save document</b></td><td>Saves the report; a new one is asked for its name</td></tr>
<tr><td><b>Print document</b></td><td>Not part of Report Desk yet</td></tr>
<tr><td><b>Print preview</b></td><td>Not part of Report Desk yet</td></tr>
<tr><td><b>Cut to clipboard</b></td><td>Moves the selection to the clipboard</td></tr>
<tr><td><b>Copy to clipboard</b></td><td>Copies the selection to the clipboard</td></tr>
<tr><td><b>Paste from clipboard</b></td><td>Puts what the clipboard holds in place of the selection</td></tr>
<tr><td><b>Delete selection</b></td><td>Deletes the selection</td></tr>
<tr><td><b>Undo typing</b></td><td>Takes back the last change</td></tr>
<tr><td><b>Redo typing</b></td><td>Makes a change again that was taken back</td></tr>
<tr><td><b>Font PopUp</b></td><td>Opens a list of fonts</td></tr>
<tr><td><b>Size Popup</b></td><td>Opens a list of sizes</td></tr>
<tr><td><b>Colour Popup</b></td><td>Opens the colours of the text</td></tr>
<tr><td><b>Bold text</b></td><td>Makes text bold, or no longer bold</td></tr>
<tr><td><b>Italic text</b></td><td>Makes text italic, or upright</td></tr>
<tr><td><b>Underline text</b></td><td>Underlines text, or takes the line away</td></tr>
<tr><td><b>Strikeout text</b></td><td>Strikes text out, or takes the line away</td></tr>
<tr><td><b>Subscript</b></td><td>Lowers and reduces text, or puts it back on the line</td></tr>
<tr><td><b>Superscript</b></td><td>Raises and reduces text, or puts it back on the line</td></tr>
<tr><td><b>Left align</b></td><td>Aligns paragraphs on the left</td></tr>
<tr><td><b>Centre align</b></td><td>Centres paragraphs</td></tr>
<tr><td><b>Right align</b></td><td>Aligns paragraphs on the right</td></tr>
<tr><td><b>bulleted text</b></td><td>Puts bullets before paragraphs, or takes them away</td></tr>
<tr><td><b>Search and replace</b></td><td>Not part of Report Desk yet</td></tr>
<tr><td><b>Spell check</b></td><td>Not part of Report Desk yet</td></tr>
<tr><td><b>help</b></td><td>Opens this window</td></tr>
</table>
)");

constexpr const char* kFonts = QT_TRANSLATE_NOOP("HelpTopics", R"(
<h2>Fonts and character sets</h2>
<p>A font in a report has a face, such as Arial, and a character set: the letters that its codes stand for, such as Western,
Greek or Cyrillic. Reports keep to one set, the system's default character set, so that they read the same wherever they
are opened.</p>
<h3>When you choose a font in another character set</h3>
<p>The text takes the face that you chose, and its character set is put back to the system's default. Size, bold, italic and
the other choices are kept.</p>
<h3>Symbol fonts</h3>
<p>Fonts such as Symbol are the exception. They hold signs instead of letters and have a set of their own, which
stays.</p>
<h3>When letters look wrong</h3>
<ul>
<li>Undo the change of font (Ctrl+Z).</li>
<li>Select the text and choose a face that has the letters of your language, such as Arial or Times New Roman.</li>
<li>If words have turned into signs, the text is in a symbol font: choose another face for it.</li>
<li>If one computer alone shows wrong letters, the face is not installed there: install it, or choose one that all of
them have.</li>
</ul>
)");

}  // namespace

constexpr std::array<HelpTopic, 3> HelpTopic::kAll = {{
    {kOverviewTopic, QT_TRANSLATE_NOOP("HelpTopics", "Overview"), kOverview},
    {kToolbarTopic, QT_TRANSLATE_NOOP("HelpTopics", "The toolbar"), kToolbar},
    {kFontsTopic, QT_TRANSLATE_NOOP("HelpTopics", "Fonts and character sets"), kFonts},
}};

static_assert(HelpTopic::kAll.front().context == kOverviewTopic);

QString HelpTopic::Title() const { return QCoreApplication::translate(kContext, title); }

QString HelpTopic::Text() const { return QCoreApplication::translate(kContext, text); }

int RowOfTopic(int context)
{
    const auto* found = std::ranges::find(HelpTopic::kAll, context, &HelpTopic::context);
    return found == HelpTopic::kAll.end() ? 0 : static_cast<int>(found - HelpTopic::kAll.begin());
}

}  // namespace quillmarker::desk
