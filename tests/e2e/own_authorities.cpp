// Preloaded into the program by tests of TLS: whatever it looks for among the system's certificate
// authorities, it finds in the folder that FENNICK_TEST_AUTHORITIES names. Trusting a test's own authority
// thus takes no mount and no right to make one.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr char systemFolder[] = "/etc/ssl/certs";

std::string redirected(const char *path) {
    const char *const folder = std::getenv("FENNICK_TEST_AUTHORITIES");
    constexpr size_t length = sizeof(systemFolder) - 1;
    const bool isInside = path != nullptr && std::strncmp(path, systemFolder, length) == 0 &&
                          (path[length] == '/' || path[length] == '\0');
    return folder != nullptr && isInside ? folder + std::string(path + length)
                                         : std::string(path != nullptr ? path : "");
}

template <typename Function>
Function *next(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

DIR *opendir(const char *path) {
    return next<DIR *(const char *)>("opendir")(redirected(path).c_str());
}

FILE *fopen(const char *path, const char *mode) {
    return next<FILE *(const char *, const char *)>("fopen")(redirected(path).c_str(), mode);
}

FILE *fopen64(const char *path, const char *mode) {
    return next<FILE *(const char *, const char *)>("fopen64")(redirected(path).c_str(), mode);
}

int open(const char *path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = va_arg(arguments, unsigned);
    va_end(arguments);
    return next<int(const char *, int, ...)>("open")(redirected(path).c_str(), flags, mode);
}

int open64(const char *path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = va_arg(arguments, unsigned);
    va_end(arguments);
    return next<int(const char *, int, ...)>("open64")(redirected(path).c_str(), flags, mode);
}

int access(const char *path, int mode) {
    return next<int(const char *, int)>("access")(redirected(path).c_str(), mode);
}

int stat(const char *path, struct stat *status) {
    return next<int(const char *, struct stat *)>("stat")(redirected(path).c_str(), status);
}

int stat64(const char *path, struct stat64 *status) {
    return next<int(const char *, struct stat64 *)>("stat64")(redirected(path).c_str(), status);
}

int lstat(const char *path, struct stat *status) {
    return next<int(const char *, struct stat *)>("lstat")(redirected(path).c_str(), status);
}

int lstat64(const char *path, struct stat64 *status) {
    return next<int(const char *, struct stat64 *)>("lstat64")(redirected(path).c_str(), status);
}

char *realpath(const char *path, char *resolved) {
    return next<char *(const char *, char *)>("realpath")(redirected(path).c_str(), resolved);
}

// What realpath is in a library that was compiled with checked buffers.
char *__realpath_chk(const char *path, char *resolved, size_t size) {
    return next<char *(const char *, char *, size_t)>("__realpath_chk")(redirected(path).c_str(), resolved,
                                                                        size);
}

int statx(int folder, const char *path, int flags, unsigned mask, struct statx *status) {
    return next<int(int, const char *, int, unsigned, struct statx *)>("statx")(
        folder, redirected(path).c_str(), flags, mask, status);
}
}
