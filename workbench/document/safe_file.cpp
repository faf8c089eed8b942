#include "workbench/document/safe_file.h"

#include "workbench/document/text.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace document {

namespace {

using Path = std::filesystem::path;

Failure cannot_write(const Path& path, const std::string& reason, const char* remedy)
{
    return Failure{quoted(path) + " cannot be saved: " + reason + ". " + remedy};
}

/// Where a link leads in the end, also when nothing is there yet.
Result<Path> destination_of(const Path& target)
{
    Path path = std::filesystem::absolute(target);
    std::error_code error;
    for (int links = 0; std::filesystem::is_symlink(path, error); ++links) {
        const auto next = std::filesystem::read_symlink(path, error);
        if (error || links > 40)
            return cannot_write(target, "its link leads nowhere", "Choose another name.");
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path;
}

std::optional<Failure> check_target(const Path& path)
{
    const Path folder = path.parent_path();
    struct stat status = {};
    if (stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return cannot_write(path, "the folder " + folder.string() + " does not exist", "Choose another folder.");
    if (lstat(path.c_str(), &status) != 0)
        return {};
    if (!S_ISREG(status.st_mode))
        return cannot_write(path, "there is a folder or device of that name", "Choose another name.");
    // The administrator may write anything; that a file is protected still means something.
    if ((status.st_mode & 0222) == 0 || access(path.c_str(), W_OK) != 0)
        return cannot_write(path, "the file is read-only", "Choose another name, or make it writable.");
    return {};
}

/// A new file beside the target, with the same extension, which decides how it is written.
class Temporary {
public:
    explicit Temporary(const Path& target)
    {
        std::random_device random;
        const auto folder = target.parent_path();
        const auto extension = extension_of(target);
        for (int attempt = 0; attempt < 100 && descriptor_ < 0; ++attempt) {
            path_ = folder / (".saving-" + std::to_string(random()) + extension);
            descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (descriptor_ < 0 && errno != EEXIST)
                break;
        }
        error_ = descriptor_ < 0 ? errno : 0;
    }
    ~Temporary()
    {
        if (descriptor_ < 0)
            return;
        close(descriptor_);
        if (!kept_)
            unlink(path_.c_str());
    }
    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    int error() const { return error_; }
    const Path& path() const { return path_; }

    /// On the disk, with the rights of what it replaces, in its place. Returns 0 or the error.
    int replace(const Path& target)
    {
        struct stat status = {};
        if (stat(target.c_str(), &status) == 0)
            fchmod(descriptor_, status.st_mode & 07777);
        if (fsync(descriptor_) != 0 || rename(path_.c_str(), target.c_str()) != 0)
            return errno;
        kept_ = true;
        flush_folder(target.parent_path());
        return 0;
    }

private:
    static void flush_folder(const Path& folder)
    {
        const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (descriptor < 0)
            return;
        fsync(descriptor);
        close(descriptor);
    }

    Path path_;
    int descriptor_ = -1;
    int error_ = 0;
    bool kept_ = false;
};

/// A failure with its true reason when the disk is full, which the writers of formats do not notice.
Failure explained(const Path& target, const Failure& failure, std::uint64_t bytes)
{
    struct statvfs status = {};
    if (statvfs(target.parent_path().c_str(), &status) == 0) {
        const auto left = std::uint64_t(status.f_bavail) * status.f_frsize;
        if (left < bytes)
            return cannot_write(target,
                "the disk is full (" + bytes_text(left) + " free, up to " + bytes_text(bytes) + " needed)",
                "Free some space, or choose another disk.");
    }
    return cannot_write(target, failure.message, "Choose another place.");
}

}

std::optional<Failure> replace_file(
    const Path& target, std::uint64_t bytes, const std::function<std::optional<Failure>(const Path& temporary)>& write)
{
    const auto destination = destination_of(target);
    if (!destination)
        return destination.failure();
    if (auto failure = check_target(*destination))
        return failure;
    Temporary temporary(*destination);
    if (temporary.error() != 0)
        return cannot_write(*destination,
            "its folder takes no new file (" + std::string(std::strerror(temporary.error())) + ")",
            "Choose another folder.");
    if (const auto failure = write(temporary.path()))
        return explained(*destination, *failure, bytes);
    if (const int error = temporary.replace(*destination); error != 0)
        return explained(*destination, Failure{std::strerror(error)}, bytes);
    return {};
}

}
