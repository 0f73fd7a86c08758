#include "choose_font.h"

#include "engine/box/attempt.h"

#include <QPointer>

namespace quillmarker
{
namespace
{

/// The name is that of the set it is put back to, not of the one that was chosen.
Message CharsetMessage(int defaultCharset, HelpService& help)
{
    return {
        .text = QStringLiteral("The font character set has been re-set to be your system's default: ") +
                CharsetName(defaultCharset) + u'.',
        .title = QStringLiteral("Font"),
        .icon = QMessageBox::Information,
        .buttons = QMessageBox::Ok | QMessageBox::Help,
        .helpContext = kFontHelpContext,
        .showHelp = [&help](QWidget* box) { help.ShowTopic(kFontHelpContext, box); },
    };
}

}  // namespace

bool ChooseFontDialog(FontChoice& rec, const FontServices& services, QWidget* owner, int dotsPerInch,
                      int defaultCharset)
{
    const QPointer<QWidget> shownOver = owner;
    bool isChosen = false;
    Attempt([&] {
        const FontDialogRequest asked = RequestFor(rec, dotsPerInch);
        FontDialogRequest answer = asked;
        if (!services.fontDialog.Choose(answer, owner))
            return;
        rec = ChoiceOf(answer, asked);
        isChosen = true;
    });
    if (rec.Charset == defaultCharset || rec.Charset == kSymbolCharset)
        return isChosen;
    Attempt([&] { services.messageBoxes.Show(CharsetMessage(defaultCharset, services.help), shownOver); });
    rec.Charset = defaultCharset;
    return isChosen;
}

}  // namespace quillmarker
