// The system's part on everything but Windows.
#include "tools/wendlow_profile/system/platform.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <filesystem>
#include <system_error>

#include <locale.h>

#include "tools/wendlow_profile/system/text.h"

namespace profile_tool::platform
{

namespace
{

namespace fs = std::filesystem;

constexpr std::size_t kRead_bytes = 1 << 20;
constexpr int kTemporaryNames = 100;

class Descriptor
{
public:
    explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
    ~Descriptor()
    {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int get() const { return descriptor_; }
    [[nodiscard]] bool close()
    {
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return ::close(descriptor) == 0;
    }

private:
    int descriptor_;
};

bool fail(std::string* why)
{
    *why = std::strerror(errno);
    return false;
}

bool write_all(int descriptor, ByteView bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

// Creates the file with these bytes; leaves none that is not whole.
bool create(const std::string& path, mode_t mode, ByteView bytes, bool* exists, std::string* why)
{
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (file.get() < 0) {
        *exists = errno == EEXIST;
        return fail(why);
    }
    const bool is_written = write_all(file.get(), bytes) && ::fsync(file.get()) == 0;
    const int error = errno;
    if (is_written && file.close())
        return true;
    ::unlink(path.c_str());
    errno = is_written ? errno : error;
    return fail(why);
}

void tell_of_wanted(const fs::directory_entry& entry, const std::function<bool(const std::u16string&)>& wants,
                    const std::function<void(const std::u16string& name, const std::u16string& path)>& found)
{
    std::error_code unknown;
    const std::optional<std::u16string> name = utf16_of(entry.path().filename().string());
    if (!name || !entry.is_regular_file(unknown) || !wants(without_case(*name)))
        return;
    // The way by which programs of Windows that run here name files.
    std::optional<std::u16string> path = utf16_of("Z:" + entry.path().string());
    if (!path)
        return;
    for (char16_t& unit : *path)
        unit = unit == u'/' ? u'\\' : unit;
    found(without_case(*name), *path);
}

} // namespace

bool read_file(const std::string& path, Bytes* bytes, std::string* why)
{
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.get() < 0)
        return fail(why);
    Bytes all;
    struct stat status {
    };
    if (::fstat(file.get(), &status) == 0 && status.st_size > 0 &&
        static_cast<std::size_t>(status.st_size) <= kFile_max_bytes)
        all.reserve(static_cast<std::size_t>(status.st_size) + 1);
    Bytes part(kRead_bytes);
    for (;;) {
        const ssize_t read = ::read(file.get(), part.data(), part.size());
        if (read < 0 && errno == EINTR)
            continue;
        if (read < 0)
            return fail(why);
        if (read == 0)
            break;
        all.insert(all.end(), part.begin(), part.begin() + read);
        if (all.size() > kFile_max_bytes) {
            *why = "it has 4 GiB or more, the program reads no file of that size";
            return false;
        }
    }
    *bytes = std::move(all);
    return true;
}

bool write_new_file(const std::string& path, ByteView bytes, bool* exists, std::string* why)
{
    *exists = false;
    return create(path, 0666, bytes, exists, why);
}

bool replace_file(const std::string& path, ByteView bytes, std::string* why)
{
    std::error_code error;
    // A link stays one; the file it leads to is replaced.
    const fs::path target = fs::is_symlink(path, error) ? fs::weakly_canonical(path, error) : fs::path(path);
    struct stat status {
    };
    if (::stat(target.c_str(), &status) != 0)
        return fail(why);
    if (!S_ISREG(status.st_mode)) {
        *why = "it is no ordinary file";
        return false;
    }
    for (int i = 0; i < kTemporaryNames; ++i) {
        // Not made of the target's name, which may be as long as names can be.
        const std::string temporary =
            target.parent_path() /
            (".wendlow-profile-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp");
        bool exists = false;
        if (!create(temporary, status.st_mode & 0777, bytes, &exists, why)) {
            if (exists)
                continue;
            return false;
        }
        ::chmod(temporary.c_str(), status.st_mode & 0777);
        if (::rename(temporary.c_str(), target.c_str()) == 0)
            return true;
        fail(why);
        ::unlink(temporary.c_str());
        return false;
    }
    return false;
}

bool find_files(const std::string& folder, const std::function<bool(const std::u16string&)>& wants,
                const std::function<void(const std::u16string& name, const std::u16string& path)>& found,
                std::string* why)
{
    std::error_code error;
    std::vector<fs::path> folders{fs::canonical(folder, error)};
    if (!error)
        fs::directory_iterator(folders.front(), error);
    if (error) {
        *why = error.message();
        return false;
    }
    while (!folders.empty()) {
        const fs::path here = std::move(folders.back());
        folders.pop_back();
        // A folder that is not to be read, or gone meanwhile, is passed over.
        std::error_code passed;
        fs::directory_iterator entry(here, passed);
        for (; !passed && entry != fs::directory_iterator(); entry.increment(passed)) {
            std::error_code unknown;
            if (entry->is_directory(unknown) && !entry->is_symlink(unknown))
                folders.push_back(entry->path());
            else
                tell_of_wanted(*entry, wants, found);
        }
    }
    return true;
}

void put_in_capitals(std::u16string* text)
{
    static const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    for (char16_t& unit : *text) {
        const std::wint_t capital = locale != nullptr ? ::towupper_l(unit, locale) : std::towupper(unit);
        // No letter beyond ASCII has one of ASCII for its capital in file names.
        if (unit < 0x80 || (capital >= 0x80 && capital <= 0xFFFF))
            unit = static_cast<char16_t>(capital);
    }
}

Surroundings surroundings()
{
    return {};
}

std::optional<std::string> open_profile(const std::string& /*path*/)
{
    return "Wendlow runs on Windows only";
}

} // namespace profile_tool::platform
