#pragma once

// Running foedit's commands in-process, on a buffer of the test's own or on a
// session that the test keeps.

#include "EditorSession.h"
#include "FlowPrinter.h"
#include "ScriptParser.h"
#include "ScriptRunner.h"

#include <memory>
#include <sstream>
#include <string>

namespace foedit::test {

struct ScriptResult {
    ExitCode code = ExitCode::Ok;
    std::string out;
    std::string err;
};

// Runs `script` (lines as in a script file, named "t.fes") on `session`.
inline ScriptResult runScript(EditorSession &session, const std::string &script)
{
    std::ostringstream out;
    std::ostringstream err;
    ScriptRunner runner(session, out, err);
    ScriptResult result;
    result.code = runner.run(ScriptParser::parse(script, "t.fes"));
    result.out = out.str();
    result.err = err.str();
    return result;
}

// Runs `script` on a buffer that belongs to someone else (the shared edit check's).
inline ScriptResult runScriptOn(EditableDocumentBuffer &buffer, const std::string &script)
{
    EditorSession session{SmartPtr<EditableDocumentBuffer>(&buffer)};
    return runScript(session, script);
}

// A session on a one-flow document holding `markedFlow`.
inline std::unique_ptr<EditorSession> sessionWithFlow(const std::string &markedFlow)
{
    auto session = std::make_unique<EditorSession>();
    runScript(*session, "open-flow " + markedFlow);
    return session;
}

} // namespace foedit::test
