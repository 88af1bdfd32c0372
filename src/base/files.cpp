#include "base/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace ssq {

namespace {

namespace fs = std::filesystem;

// The errors a user can do something about, in his language; others in the system's words.
std::string Reason(int error) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return "文件夹不存在。";
        case EACCES:
        case EPERM:
            return "没有写入权限。";
        case EROFS:
            return "磁盘是只读的。";
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return "磁盘空间不足。";
        case EISDIR:
            return "同名的文件夹已存在。";
        case ENAMETOOLONG:
            return "文件名太长。";
        default:
            return std::generic_category().message(error);
    }
}

// A new file beside the one that it will replace; removed again unless kept.
class TemporaryFile {
  public:
    explicit TemporaryFile(const fs::path& target)
        : path_(target.string() + ".part" + std::to_string(::getpid())),
          descriptor_(::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (!isOpen()) return;
        const int error = errno;  // the reason of the failure outlives the clearing up
        ::close(descriptor_);
        std::error_code ignored;
        if (!kept_) fs::remove(path_, ignored);
        errno = error;
    }

    bool isOpen() const { return descriptor_ >= 0; }

    bool Write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const auto written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) return false;
            if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return ::fsync(descriptor_) == 0;
    }

    bool MoveTo(const fs::path& target) {
        std::error_code error;
        fs::rename(path_, target, error);
        kept_ = !error;
        errno = error.value();
        return kept_;
    }

  private:
    fs::path path_;
    int descriptor_;
    bool kept_ = false;
};

// Renaming would also replace what must stay: a write-protected file, a device. Sets errno.
bool MayReplace(const fs::path& target) {
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    if (!fs::exists(status)) return true;
    if (!fs::is_regular_file(status)) {
        errno = fs::is_directory(status) ? EISDIR : EACCES;
        return false;
    }
    return ::access(target.c_str(), W_OK) == 0;
}

bool Replace(const fs::path& target, std::string_view bytes) {
    if (!MayReplace(target)) return false;
    TemporaryFile temporary(target);
    return temporary.isOpen() && temporary.Write(bytes) && temporary.MoveTo(target);
}

}  // namespace

bool ReplaceFile(const fs::path& file, std::string_view bytes, std::string& errorText) {
    // A link stays a link; the file behind it is replaced.
    std::error_code ignored;
    const fs::path resolved = fs::weakly_canonical(file, ignored);
    if (Replace(resolved.empty() ? file : resolved, bytes)) return true;
    errorText = Reason(errno);
    return false;
}

}  // namespace ssq
