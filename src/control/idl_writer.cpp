#include "control/idl_writer.h"

#include "control/type_library_ids.h"

#include <quillmarker/widgets/type_information.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace quillmarker
{

namespace
{

constexpr std::string_view kLibraryHead = R"(library QuillmarkerEd
{
    importlib("stdole2.tlb");

    interface _RichTextEditor;
    dispinterface __RichTextEditor;

)";

constexpr std::string_view kClassBody = R"(    coclass RichTextEditor
    {
        [default] interface _RichTextEditor;
        [default, source] dispinterface __RichTextEditor;
    };
};
)";

std::string_view TypeName(MemberType type)
{
    switch (type)
    {
    case MemberType::Boolean:
        return "VARIANT_BOOL";
    case MemberType::Long:
        return "long";
    case MemberType::Single:
        return "float";
    case MemberType::String:
        return "BSTR";
    case MemberType::Picture:
        return "IPictureDisp*";
    case MemberType::Object:
        return "IDispatch*";
    case MemberType::None:
        break;
    }
    return "void";
}

// The name of the attribute in front of a function of this kind; none for a method.
std::string_view KindAttribute(MemberKind kind)
{
    switch (kind)
    {
    case MemberKind::PropertyGet:
        return ", propget";
    case MemberKind::PropertyPut:
        return ", propput";
    case MemberKind::Method:
        break;
    }
    return {};
}

std::string Hexadecimal(std::int32_t id)
{
    char digits[8];
    char* const end = std::to_chars(digits, digits + sizeof digits, static_cast<std::uint32_t>(id), 16).ptr;
    std::transform(digits, end, digits,
                   [](char digit) { return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit; });
    return "0x" + std::string(digits, end);
}

std::string Quoted(std::string_view text)
{
    std::string quoted = "\"";
    for (const char character : text)
    {
        if (character == '"' || character == '\\')
            quoted += '\\';
        quoted += character;
    }
    return quoted + '"';
}

std::string Declared(const Parameter& parameter)
{
    const bool isReference = parameter.passedBy == PassedBy::Reference;
    std::string text(isReference ? "[in, out] " : "[in] ");
    text += TypeName(parameter.type);
    text += isReference ? "* " : " ";
    text += parameter.name;
    return text;
}

// What stands between the parentheses. A result is a last parameter, by reference.
std::string ParameterList(std::span<const Parameter> parameters, MemberType result)
{
    std::string list;
    for (const Parameter& parameter : parameters)
        list += (list.empty() ? "" : ", ") + Declared(parameter);
    if (result != MemberType::None)
        list += std::string(list.empty() ? "" : ", ") + "[out, retval] " + std::string(TypeName(result)) + "* result";
    return list;
}

std::string Line(const Member& member)
{
    std::string line = "        [id(" + Hexadecimal(member.dispatchId) + ")";
    line += KindAttribute(member.kind);
    line += member.isBrowsable ? "" : ", nonbrowsable";
    line += ", helpstring(" + Quoted(member.help) + ")]\n";
    line += "        HRESULT " + std::string(member.name);
    return line + '(' + ParameterList(member.parameters, member.result) + ");\n";
}

std::string Line(const EventMember& event)
{
    std::string line =
        "        [id(" + std::to_string(event.dispatchId) + "), helpstring(" + Quoted(event.help) + ")]\n";
    line += "        void " + std::string(event.name);
    return line + '(' + ParameterList(event.parameters, MemberType::None) + ");\n";
}

// The attributes of what follows.
std::string Attributes(std::string_view id, std::string_view others)
{
    return "[uuid(" + std::string(id) + "), " + std::string(others) + "]\n";
}

std::string Interface()
{
    std::string text = "    " +
                       Attributes(kInterfaceId, "object, dual, oleautomation, hidden, pointer_default(unique)") +
                       "    interface _RichTextEditor : IDispatch\n    {\n";
    for (const Member& member : InterfaceMembers())
        text += Line(member);
    return text + "    };\n\n";
}

std::string EventInterface()
{
    std::string text = "    " + Attributes(kEventInterfaceId, "hidden") +
                       "    dispinterface __RichTextEditor\n    {\n    properties:\n    methods:\n";
    for (const EventMember& event : InterfaceEvents())
        text += Line(event);
    return text + "    };\n\n";
}

}  // namespace

std::string TypeLibraryIdl()
{
    std::string text = "// Written by the build from the table of the interface.\n\n"
                       "import \"oaidl.idl\";\nimport \"ocidl.idl\";\n\n";
    text += Attributes(kTypeLibraryId, "version(1.0), helpstring(\"Quillmarker RTF report control\")");
    text += kLibraryHead;
    text += Interface();
    text += EventInterface();
    text += "    " + Attributes(kClassId, "control, helpstring(\"Quillmarker RTF report control\")");
    text += kClassBody;
    return text;
}

}  // namespace quillmarker
