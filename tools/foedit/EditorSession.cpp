#include "EditorSession.h"

#include "ScriptError.h"

#include "structures/ListBuffer.h"
#include "support/Exception.h"

#include <filesystem>
#include <system_error>

namespace {

// Whether writing to `target` would replace the file at `input`: the same file under
// another spelling or through a link counts.
bool isSameFile(const std::string &input, const std::string &target)
{
    if (input.empty())
        return false;
    std::error_code error;
    if (std::filesystem::equivalent(input, target, error))
        return true;
    return std::filesystem::weakly_canonical(input, error) ==
           std::filesystem::weakly_canonical(target, error);
}

} // namespace

void configureDesignerHost(EditableDocumentBuffer &document)
{
    document.setRootElement("fo:root");
    for (const char *element :
         {"fo:block", "fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override", "ot:form"})
        document.addEditableElement(element);
    for (const char *element : {"fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override"})
        document.addInlineEditableElement(element);
}

EditorSession::EditorSession() : buffer(new ListBuffer())
{
    configureDesignerHost(*buffer);
    listen();
}

EditorSession::EditorSession(SmartPtr<EditableDocumentBuffer> document) : buffer(std::move(document))
{
    listen();
}

EditorSession::~EditorSession()
{
    buffer->setMonitor(nullptr);
}

void EditorSession::listen()
{
    monitor = std::make_unique<HostMonitor>(*buffer);
    buffer->setMonitor(monitor.get());
}

void EditorSession::open(const std::string &path)
{
    try {
        buffer->setContentFromFile(Core::String(path));
    } catch (const Core::Exception &error) {
        throw ScriptError(ExitCode::DocumentError, "cannot open the document " + path + ": " + error.what());
    }
    input = path;
    name = path;
    monitor->takeHeard();
}

void EditorSession::openText(const std::string &utf8, const std::string &documentName)
{
    buffer->setContent(Core::String::fromUtf8(utf8), true);
    input.clear();
    name = documentName;
    monitor->takeHeard();
}

void EditorSession::save(const std::string &path, DocumentEncoding encoding, bool force)
{
    if (!force && !overwriteInput && isSameFile(input, path))
        throw ScriptError(ExitCode::SaveError, "refusing to write over the input document " + path +
                                                   " (use 'save FILE --force' or the option --overwrite)");
    try {
        buffer->saveToFile(Core::String(path), encoding);
    } catch (const Core::Exception &error) {
        throw ScriptError(ExitCode::SaveError, "cannot save " + path + ": " + error.what());
    }
}
