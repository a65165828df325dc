// The pages of the gallery. Each adds the groups of one family of controls to the board; a new family gets a page of
// its own here, and a call in GalleryDlg.cpp.
#pragma once

class CGalleryBoard;

void AddButtons(CGalleryBoard& board);
void AddGrounds(CGalleryBoard& board);
void AddDisplays(CGalleryBoard& board);
void AddIconButtons(CGalleryBoard& board);
void AddSmallControls(CGalleryBoard& board);
void AddStrips(CGalleryBoard& board);
void AddMenuButtons(CGalleryBoard& board);
