// A pseudo-terminal and its link.
#include "line/PseudoTerminal.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdlib>

bool CPseudoTerminal::Open(std::string& error) {
    Close();
    const bool opened = Make(error) && (link.empty() || MakeLink(error));
    if (!opened) Close();
    return opened;
}

bool CPseudoTerminal::Make(std::string& error) {
    ours = CDescriptor(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!ours.IsOpen() || grantpt(ours.Get()) != 0 || unlockpt(ours.Get()) != 0) {
        return FailBySystem(error, "can't make a pseudo-terminal");
    }
    std::array<char, 64> path{};
    if (ptsname_r(ours.Get(), path.data(), path.size()) != 0) {
        return FailBySystem(error, "the pseudo-terminal has no name");
    }
    name = path.data();
    theirs = CDescriptor(open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (theirs.IsOpen() && MakeRaw(theirs.Get(), B4800)) return true;
    return FailBySystem(error, "can't set up " + name);
}

bool CPseudoTerminal::MakeLink(std::string& error) {
    struct stat present {};
    const bool exists = lstat(link.c_str(), &present) == 0;
    if (exists && !S_ISLNK(present.st_mode)) {
        error = link + " is there already and is no link";
        return false;
    }
    if (exists && unlink(link.c_str()) != 0) return FailBySystem(error, "can't replace " + link);
    return symlink(name.c_str(), link.c_str()) == 0 || FailBySystem(error, "can't make " + link);
}

void CPseudoTerminal::Close() {
    if (ours.IsOpen() && !link.empty()) {
        std::array<char, 256> target{};
        const ssize_t length = readlink(link.c_str(), target.data(), target.size());
        // Another line may have taken the link over.
        if (length > 0 && name == std::string(target.data(), static_cast<std::size_t>(length))) unlink(link.c_str());
    }
    theirs.Close();
    ours.Close();
}
