#include "platform/file_identity_posix.h"

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <optional>
#include <string>

namespace varno {

namespace {

constexpr std::size_t MostBytes = 1 << 16;  // of one value, and of all names together
constexpr mode_t AllRights = 07777;

using Attributes = std::map<std::string, std::string>;

// The extended attributes, access control lists among them; nothing if they cannot be read.
std::optional<Attributes> AttributesOf(int file) {
    std::string names(MostBytes, '\0');
    const ssize_t length = ::flistxattr(file, names.data(), names.size());
    if (length < 0) {
        return errno == ENOTSUP ? std::optional(Attributes()) : std::nullopt;
    }
    Attributes attributes;
    std::string value(MostBytes, '\0');
    for (const char* name = names.data(); name < names.data() + length;
         name += std::strlen(name) + 1) {
        const ssize_t size = ::fgetxattr(file, name, value.data(), value.size());
        if (size < 0) {
            return std::nullopt;
        }
        attributes[name] = value.substr(0, static_cast<std::size_t>(size));
    }
    return attributes;
}

bool CopyAttributes(int from, int to) {
    const std::optional<Attributes> wanted = AttributesOf(from);
    const std::optional<Attributes> present = AttributesOf(to);
    if (!wanted || !present) {
        return false;
    }
    for (const auto& [name, value] : *wanted) {
        const auto same = present->find(name);
        if ((same == present->end() || same->second != value) &&
            ::fsetxattr(to, name.c_str(), value.data(), value.size(), 0) != 0) {
            return false;
        }
    }
    // A new file may have got some from its folder.
    return std::all_of(present->begin(), present->end(), [&](const auto& attribute) {
        return wanted->count(attribute.first) > 0 ||
               ::fremovexattr(to, attribute.first.c_str()) == 0;
    });
}

}  // namespace

bool CopyIdentity(int from, int to) {
    struct stat old {};
    struct stat now {};
    if (::fstat(from, &old) != 0 || ::fstat(to, &now) != 0) {
        return false;
    }
    const bool owned = old.st_uid == now.st_uid && old.st_gid == now.st_gid;
    return (owned || ::fchown(to, old.st_uid, old.st_gid) == 0) && CopyAttributes(from, to) &&
           ::fchmod(to, old.st_mode & AllRights) == 0;
}

}  // namespace varno
