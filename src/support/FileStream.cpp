#include "support/FileStream.h"

#include "support/Exception.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Core::IO {

namespace {

String fromWide(const wchar_t *path)
{
    String text;
    for (const wchar_t *c = path ? path : L""; *c != L'\0'; ++c) {
        const auto codePoint = static_cast<char32_t>(*c);
        if (codePoint >= 0x10000 && codePoint <= 0x10FFFF) {
            text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FF));
        } else {
            text += static_cast<char16_t>(codePoint <= 0xFFFF ? codePoint : 0xFFFD);
        }
    }
    return text;
}

// The file a path names, through any symbolic link, so that a replacement lands on
// the file and does not turn the link into a plain file.
std::string resolveLinks(const std::string &path)
{
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISLNK(status.st_mode))
        return path;
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

std::string folderOf(const std::string &path)
{
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string &path)
{
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

// A hidden name beside the target that no other save of this process uses.
std::string temporaryNameFor(const std::string &target, int attempt)
{
    static std::atomic<unsigned> counter{0};
    return folderOf(target) + "/." + nameOf(target) + ".foedit-" + std::to_string(::getpid()) + "-" +
           std::to_string(counter++) + "-" + std::to_string(attempt) + ".tmp";
}

} // namespace

FileStream::FileStream(const String &path) : FileStream(path, false, false, false) {}

FileStream::FileStream(const wchar_t *path, bool write, bool create, bool append)
    : FileStream(fromWide(path), write, create, append)
{
}

FileStream::FileStream(const String &path, bool write, bool create, bool append)
    : path_(path), target_(resolveLinks(path.toUtf8())), exceptionsAtOpen_(std::uncaught_exceptions())
{
    if (!write)
        openForReading();
    else if (create && !append)
        openForReplacing();
    else
        openInPlace(create, append);
}

FileStream::~FileStream()
{
    if (descriptor_ < 0)
        return;
    if (temporary_.empty() || std::uncaught_exceptions() == exceptionsAtOpen_) {
        try {
            close();
        } catch (const Core::Exception &) {
            // Already logged when raised; a destructor has no one else to tell.
        }
    } else {
        discardReplacement();
    }
}

void FileStream::fail(const char *what, int error) const
{
    FOEDIT_THROW(Core::IOException(String("cannot ") + what + " '" + path_ + "': " + std::strerror(error)));
}

void FileStream::openForReading()
{
    descriptor_ = ::open(target_.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor_ < 0)
        fail("open for reading", errno);
    struct stat status {};
    if (::fstat(descriptor_, &status) == 0 && S_ISDIR(status.st_mode)) {
        ::close(descriptor_);
        descriptor_ = -1;
        fail("open for reading", EISDIR);
    }
}

void FileStream::openForReplacing()
{
    struct stat old {};
    const bool exists = ::stat(target_.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode))
        fail("replace", EISDIR);
    for (int attempt = 0; descriptor_ < 0; ++attempt) {
        temporary_ = temporaryNameFor(target_, attempt);
        descriptor_ = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor_ < 0 && (errno != EEXIST || attempt == 10)) {
            const int error = errno;
            temporary_.clear();
            fail("create a file beside", error);
        }
    }
    if (exists)
        (void)::fchmod(descriptor_, old.st_mode & 07777);
}

void FileStream::openInPlace(bool create, bool append)
{
    const int flags = O_WRONLY | O_CLOEXEC | (create ? O_CREAT : 0) | (append ? O_APPEND : 0);
    descriptor_ = ::open(target_.c_str(), flags, 0666);
    if (descriptor_ < 0)
        fail("open for writing", errno);
}

std::size_t FileStream::read(char *buffer, std::size_t count)
{
    if (descriptor_ < 0)
        fail("read closed", EBADF);
    for (;;) {
        const ssize_t n = ::read(descriptor_, buffer, count);
        if (n >= 0)
            return static_cast<std::size_t>(n);
        if (errno != EINTR)
            fail("read", errno);
    }
}

void FileStream::write(std::string_view bytes)
{
    if (descriptor_ < 0)
        fail("write closed", EBADF);
    while (!bytes.empty()) {
        const ssize_t n = ::write(descriptor_, bytes.data(), bytes.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0)
            fail("write", errno);
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

void FileStream::seek(std::int64_t position)
{
    if (descriptor_ < 0 ||
        ::lseek(descriptor_, static_cast<off_t>(position < 0 ? 0 : position), SEEK_SET) < 0)
        fail("seek in", descriptor_ < 0 ? EBADF : errno);
}

std::int64_t FileStream::getPosition() const
{
    const off_t position = descriptor_ < 0 ? -1 : ::lseek(descriptor_, 0, SEEK_CUR);
    return position < 0 ? 0 : static_cast<std::int64_t>(position);
}

std::int64_t FileStream::getLength() const
{
    struct stat status {};
    if (descriptor_ < 0 || ::fstat(descriptor_, &status) != 0)
        return 0;
    return static_cast<std::int64_t>(status.st_size);
}

void FileStream::close()
{
    if (descriptor_ < 0)
        return;
    if (!temporary_.empty()) {
        commitReplacement();
        return;
    }
    const int result = ::close(descriptor_);
    descriptor_ = -1;
    if (result != 0 && errno != EINTR)
        fail("close", errno);
}

// The bytes reach the disk before the rename, so that after a crash the target holds
// either the old document or the new one, never an empty file.
void FileStream::commitReplacement()
{
    if (::fsync(descriptor_) != 0 && errno != EINVAL) {
        const int error = errno;
        discardReplacement();
        fail("write", error);
    }
    const int closed = ::close(descriptor_);
    const int closeError = errno;
    descriptor_ = -1;
    if (closed != 0 && closeError != EINTR) {
        discardReplacement();
        fail("write", closeError);
    }
    if (::rename(temporary_.c_str(), target_.c_str()) != 0) {
        const int error = errno;
        discardReplacement();
        fail("replace", error);
    }
    temporary_.clear();
}

void FileStream::discardReplacement() noexcept
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
    descriptor_ = -1;
    if (!temporary_.empty())
        ::unlink(temporary_.c_str());
    temporary_.clear();
}

} // namespace Core::IO
