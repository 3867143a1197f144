#pragma once

// The sample letter (examples/letter.fo), built into the program so that foedit
// opens a document when it is given none.
namespace SampleDocument {

const char *letter();
inline const char *letterName()
{
    return "sample letter";
}

} // namespace SampleDocument
