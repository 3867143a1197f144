#pragma once

#include "HostMonitor.h"

#include "editing/EditableDocumentBuffer.h"
#include "support/DocumentEncoding.h"
#include "support/PropertyCollection.h"
#include "support/SmartPtr.h"

#include <functional>
#include <memory>
#include <string>

// One open document as foedit holds it: the engine's buffer, configured the way an
// XSL-FO designer configures it, the file it came from, and the host's settings that
// commands read.
class EditorSession {
public:
    // A new, empty buffer with the designer's editable elements and the list commands.
    EditorSession();
    // A buffer made elsewhere (tests hand in theirs). The session listens to it while
    // it lives.
    explicit EditorSession(SmartPtr<EditableDocumentBuffer> document);
    ~EditorSession();
    EditorSession(const EditorSession &) = delete;
    EditorSession &operator=(const EditorSession &) = delete;

    // Loads a document file. Throws a ScriptError (DocumentError) naming the file
    // when it is missing or unreadable; the buffer is then unchanged.
    void open(const std::string &path);
    // Loads markup that has no file (the bundled sample); `name` is for messages.
    void openText(const std::string &utf8, const std::string &name);

    EditableDocumentBuffer &document() { return *buffer; }
    const EditableDocumentBuffer &document() const { return *buffer; }
    // The file the document came from; empty for the sample.
    const std::string &inputPath() const { return input; }
    const std::string &documentName() const { return name; }

    // Writes the document to `path`. Refuses (SaveError) to write over the input
    // document unless `force` or the overwrite setting allows it. The engine writes a
    // temporary file and renames it, so a failed save leaves any old file whole.
    void save(const std::string &path, DocumentEncoding encoding, bool force);

    // The notifications the engine sent since the last call ("buffer caret").
    std::string takeNotifications() { return monitor->takeHeard(); }

    // Host settings.
    bool mergeInlineBoundaries = true; // one arrow press passes one visible character
    bool overwriteInput = false;       // `save` may write over the input document
    std::string outputPath;            // where keys mode's Ctrl-S saves
    // Formatting asked for with no selection: the next typed text carries it.
    PropertyCollection pendingFormat;
    // Set by a host that can run keys mode on a terminal; the `keys` command calls it.
    std::function<void()> enterKeysMode;
    // A `quit` command asks the loop that runs commands to stop.
    bool quitRequested = false;

private:
    void listen();

    SmartPtr<EditableDocumentBuffer> buffer;
    std::unique_ptr<HostMonitor> monitor;
    std::string input;
    std::string name;
};

// Configures `document` as an XSL-FO designer does: root "fo:root", the elements that
// hold text, and which of them are inline.
void configureDesignerHost(EditableDocumentBuffer &document);
