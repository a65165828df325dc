// The application object: the last target of commands, and the way into the program.
#pragma once

#include <windows.h>

#include "framework/MessageMap.h"

class CWnd;

class CWinApp : public CCommandTarget {
public:
    // The program's name stands over messages of its own, and names its help file. It outlives the application.
    explicit CWinApp(const char* programName = "");
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    ~CWinApp() override;

    static const CMessageMap& ClassMap();
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }

    // The one application object; null before it is made and after its end.
    static CWinApp* Current();
    // The program's main window; null while there is none.
    static CWnd* MainWindow();
    const char* GetName() const { return name; }

    // Prepares the process (common controls, a clear stop when memory is exhausted) and runs InitInstance.
    // What can't be had is told to the user. Gives the process's exit code, 0 if all went well.
    int Run();

    // For what keeps the program from running at all: tells the user, and Run gives an exit code that isn't 0. The
    // caller sees to it that InitInstance comes to its end.
    void Fail(const char* text);

    // Command ID_HELP: opens the help file of the program's name beside it, if there is one.
    void OnHelp();

protected:
    // The program's whole run, if it lives in a modal dialog. False ends the process.
    virtual bool InitInstance() = 0;

    CWnd* mainWindow = nullptr; // not owned

private:
    const char* name;
    int failure = 0;
};
