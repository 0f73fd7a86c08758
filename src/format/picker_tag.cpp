#include "picker_tag.h"

namespace quillmarker
{

PickerStep PickerTag::KeyDown(int key)
{
    switch (key)
    {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_isKey = false;
        return PickerStep::Apply;
    case Qt::Key_Escape:
        return PickerStep::Leave;
    default:
        m_isKey = true;
        return PickerStep::Browse;
    }
}

QString PickerTag::Text() const { return m_isKey ? QStringLiteral("Key") : QString(); }

}  // namespace quillmarker
