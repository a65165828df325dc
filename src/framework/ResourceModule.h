// Where strings, dialog templates, icons and cursors come from: the module in force (the program itself, or a language
// library loaded at start), with the program's own resources as the fallback for what that module lacks.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include <windows.h>

// The module of the running program.
HINSTANCE ProgramModule();

// The module in force; the program's own until SetResourceModule has named another. The caller keeps that one loaded.
HINSTANCE ResourceModule();
void SetResourceModule(HINSTANCE module);

// The module that holds the resource: the one in force if it has it, else the program's own (which may lack it too).
// `name` and `type` may be numbers made by MAKEINTRESOURCE.
HINSTANCE FindResourceModule(const char* name, const char* type);

// The resource's bytes, valid while its module is loaded; empty if neither module has it.
std::span<const std::byte> LoadResourceBytes(const char* name, const char* type);

// A string of the string table; empty if neither module has it.
std::string LoadText(UINT id);

// Full path of the program's folder, up to and including the last backslash.
std::string ProgramFolder();
std::wstring ProgramFolderWide();
