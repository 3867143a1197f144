#pragma once

#include "support/Stream.h"
#include "support/String.h"

#include <string>

namespace Core::IO {

// A stream over a file. Every failure to open, read or write throws
// Core::IOException (through FOEDIT_THROW, so it is logged first) with the path and
// the system's reason in its message.
//
// Opening for writing with `create` set and `append` clear replaces the file as a
// whole, and never in place: the bytes go to a new temporary file in the target's
// folder, and close() makes them final by renaming that file over the target. Until
// then the old file is untouched, so a save that fails half-way (a full disk, a
// folder that refuses new files, a target that is a folder) leaves it as it was and
// leaves no temporary file behind. The new file takes the old one's permissions; a
// file that did not exist gets the usual ones (0666 less the umask). A stream
// destroyed without close() makes its writes final as close() would, unless it is
// being destroyed by an exception, in which case they are dropped.
class FileStream : public Stream {
public:
    // Opens an existing file for reading.
    explicit FileStream(const String &path);
    // `write` clear: as above, for reading. `write` set: `create` and not `append`
    // replaces the file (see above); `append` adds at its end, creating it when
    // `create` is set; neither writes over an existing file from its start.
    FileStream(const String &path, bool write, bool create, bool append);
    FileStream(const wchar_t *path, bool write, bool create, bool append);
    ~FileStream() override;
    FileStream(const FileStream &) = delete;
    FileStream &operator=(const FileStream &) = delete;

    std::size_t read(char *buffer, std::size_t count) override;
    void write(std::string_view bytes) override;
    void seek(std::int64_t position) override;
    std::int64_t getPosition() const override;
    std::int64_t getLength() const override;
    // Closes the file; a replacing stream renames its temporary file over the target
    // here. Throws Core::IOException when that fails, the old file being intact.
    void close() override;

    const String &getPath() const noexcept { return path_; }

private:
    void openForReading();
    void openForReplacing();
    void openInPlace(bool create, bool append);
    void commitReplacement();
    void discardReplacement() noexcept;
    [[noreturn]] void fail(const char *what, int error) const;

    String path_;
    std::string target_;    // the file the stream reads or writes, symbolic links resolved
    std::string temporary_; // the replacing stream's new file; empty otherwise
    int descriptor_ = -1;   // -1 once closed
    int exceptionsAtOpen_ = 0;
};

} // namespace Core::IO
