// The program's hand cursor, which tells that a click does something here.
#pragma once

// Shows it until the platform asks for a cursor again. Without the resource the present cursor stays.
void ShowHandCursor();
