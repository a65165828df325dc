// How a link reaches the system: the calls behind it, apart so that a test can stand in for them.
#pragma once

#include <string>

class CLinkOpener {
public:
    CLinkOpener() = default;
    CLinkOpener(const CLinkOpener&) = delete;
    CLinkOpener& operator=(const CLinkOpener&) = delete;
    virtual ~CLinkOpener() = default;

    // Opens the target by the shell or, where that fails, by the command registered for web pages. Above 32 on success;
    // else the code of the last try.
    int Open(const std::string& target, int showCommand);

    // The system's own calls.
    static CLinkOpener& System();

protected:
    virtual int OpenByShell(const std::string& target, int showCommand);
    // The default value of a key under HKEY_CLASSES_ROOT; false if it can't be read.
    virtual bool ReadDefaultValue(const std::string& subKey, std::string& value);
    virtual int RunCommand(const std::string& command, int showCommand);
};
