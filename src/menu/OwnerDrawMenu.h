// The program's menu class. It turns every item of a platform menu into an owner-drawn one whose data is the address of
// a record (MenuItemRecord.h) that the menu keeps: the platform knows that an item exists, what it says and shows is
// here.
//
// Where a text is taken there are a wide and a narrow form; the narrow one converts from the process's code page. Item
// texts may be null for none. `flags` are those of the MF_ family, ids are command ids or, with MF_POPUP, the
// handle of the sub-menu; an `iconId` names a bitmap or toolbar resource, -1 none. Positions count from 0.
//
// Sub-menus. One made by AppendSubMenu or LoadMenuResource is a heap object of its parent's. One that the caller made
// and appended stays the caller's as long as it ends first: what is still attached when its parent's DestroyMenu runs
// is deleted by it. So on a stack the root is declared first and its sub-menus after it.
//
// User-interface thread only; the class-wide state has no lock.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include <windows.h>

#include "framework/Dc.h"
#include "framework/Gdi.h"
#include "framework/ImageList.h"
#include "framework/Menu.h"
#include "framework/Text.h"
#include "menu/MenuItemRecord.h"
#include "menu/WindowsVersion.h"

class CMenuToolBar;

class COwnerDrawMenu : public CMenu {
public:
    static constexpr CRuntimeClass classInfo{"COwnerDrawMenu", &CMenu::classInfo};

    COwnerDrawMenu() = default;
    COwnerDrawMenu(const COwnerDrawMenu&) = delete;
    COwnerDrawMenu& operator=(const COwnerDrawMenu&) = delete;
    ~COwnerDrawMenu() override;
    const CRuntimeClass& GetRuntimeClass() const override { return classInfo; }

    // Painting and measuring of one item. An item whose data is no record of this menu or of one below it is left
    // alone.
    void DrawItem(DRAWITEMSTRUCT& item) override;
    void MeasureItem(MEASUREITEMSTRUCT& item) override;

    // Builds the whole menu, sub-menus at every depth included, from a menu resource of the module in force or the
    // program's own. The top level becomes a bar of plain text items. False if there is no such resource, which leaves
    // the menu as it is, or if it is malformed or can't be built, which leaves the menu empty.
    virtual bool LoadMenuResource(UINT resourceId);
    virtual bool LoadMenuResource(const char* name);

    // Frees the records and the sub-menu objects that are still attached, and destroys the platform menu; its result.
    // The object can be attached again.
    bool DestroyMenu() override;

    LRESULT MenuChar(UINT character, UINT flags) override;

    // Adding items at the end. The platform's result; an item that it refuses keeps its record. Id 0 makes a separator.
    // With an image list, the image is copied into the item's own list; a null list or bitmap means no image.
    bool AppendItem(const wchar_t* text, UINT flags, UINT_PTR id, int iconId);
    bool AppendItem(const wchar_t* text, UINT flags, UINT_PTR id, const CImageList* images, int index);
    bool AppendMenuItem(UINT flags, UINT_PTR id, const wchar_t* text, int iconId);
    bool AppendMenuItem(UINT flags, UINT_PTR id, const wchar_t* text, const CImageList* images, int index);
    bool AppendMenuItem(UINT flags, UINT_PTR id, const wchar_t* text, const CBitmap* bitmap);
    // A new pop-up item's menu, which is this menu's; null if the platform has no menu left.
    COwnerDrawMenu* AppendSubMenu(const wchar_t* text);

    bool AppendItem(const char* text, UINT flags, UINT_PTR id, int iconId);
    bool AppendItem(const char* text, UINT flags, UINT_PTR id, const CImageList* images, int index);
    bool AppendMenuItem(UINT flags, UINT_PTR id, const char* text, int iconId);
    bool AppendMenuItem(UINT flags, UINT_PTR id, const char* text, const CImageList* images, int index);
    bool AppendMenuItem(UINT flags, UINT_PTR id, const char* text, const CBitmap* bitmap);
    COwnerDrawMenu* AppendSubMenu(const char* text);

    // Inserting items. Without MF_BYPOSITION, `position` is a command id: the item lands before the first item of that
    // id, in whatever menu below holds it; false if there is none. Position -1 is the end. With an image list or a
    // bitmap, the image goes to the shared store.
    bool InsertItem(std::int32_t position, const wchar_t* text, UINT flags, UINT_PTR id, int iconId);
    bool InsertItem(std::int32_t position, const wchar_t* text, UINT flags, UINT_PTR id, const CImageList* images,
                    int index);
    bool InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const wchar_t* text, int iconId);
    bool InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const wchar_t* text, const CImageList* images,
                        int index);
    bool InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const wchar_t* text, const CBitmap* bitmap);

    bool InsertItem(std::int32_t position, const char* text, UINT flags, UINT_PTR id, int iconId);
    bool InsertItem(std::int32_t position, const char* text, UINT flags, UINT_PTR id, const CImageList* images,
                    int index);
    bool InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const char* text, int iconId);
    bool InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const char* text, const CImageList* images,
                        int index);
    bool InsertMenuItem(std::int32_t position, UINT flags, UINT_PTR id, const char* text, const CBitmap* bitmap);

    // Changing every item of a command id, at any depth. A null text leaves the captions alone. A null list or bitmap
    // takes an item's own image away and leaves the shared one of its command. An id that no item has gets a record at
    // the end of this menu, and the result is false; else it is the platform's. Plain sub-menus are passed over.
    bool ModifyItem(const wchar_t* text, UINT id, int iconId);
    bool ModifyItem(const wchar_t* text, UINT id, const CImageList* images, int index);
    bool ModifyItem(const wchar_t* text, UINT id, const CBitmap* bitmap);
    // The image becomes a swatch: a bordered rectangle of a colour, hatched (HS_ family) or plain (-1). `size` in
    // pixels, null for the size of the menu's images.
    bool ModifyItem(const wchar_t* text, UINT id, COLORREF fill, COLORREF border, int hatch,
                    const SIZE* size = nullptr);
    // Changes the record of a caption; whether there is one.
    bool ModifyItemByText(const wchar_t* newText, const wchar_t* oldText, int iconId);

    bool ModifyItem(const char* text, UINT id, int iconId);
    bool ModifyItem(const char* text, UINT id, const CImageList* images, int index);
    bool ModifyItem(const char* text, UINT id, const CBitmap* bitmap);
    bool ModifyItem(const char* text, UINT id, COLORREF fill, COLORREF border, int hatch, const SIZE* size = nullptr);
    bool ModifyItemByText(const char* newText, const char* oldText, int iconId);

    // Taking items out. Without MF_BYPOSITION, `position` is a command id, looked for at any depth. A pop-up item's
    // sub-menu goes with all that is below it, so its object must be one of the heap. The platform's result.
    bool RemoveItem(UINT position, UINT flags) { return TakeOut(position, flags, Removal::Remove); }
    // The same through the platform's DeleteMenu; the record of a separator goes only if it has no text.
    bool DeleteItem(UINT position, UINT flags) { return TakeOut(position, flags, Removal::Delete); }
    // The item of a caption in this menu, and by `neighbours` some beside it: 1 or 2 the one before, 3 the one before
    // and the one behind. What GetItemPosition said of the caption.
    int RemoveItemByText(const wchar_t* text, int neighbours) {
        return TakeOutByText(text, neighbours, Removal::Remove);
    }
    int DeleteItemByText(const wchar_t* text, int neighbours) {
        return TakeOutByText(text, neighbours, Removal::Delete);
    }
    int RemoveItemByText(const char* text, int neighbours);
    int DeleteItemByText(const char* text, int neighbours);

    // Finding. Captions are compared exactly and must not be null.
    // The first menu, depth first in the order of positions, that holds an item of the command id, and its position
    // there; null and -1 for none. The platform's items are searched: one of them may have no record. Sub-menus without
    // an object of this class are passed over.
    COwnerDrawMenu* LocateItem(UINT id, int& position);
    // The same, past the pairs of `menus[i]` and `positions[i]`.
    COwnerDrawMenu* LocateNextItem(UINT id, int& position, std::span<COwnerDrawMenu* const> menus,
                                   std::span<const int> positions);
    // The first record of the caption, in sub-menus too; null for none. A menu's own records are searched only if it
    // has an item that isn't a pop-up.
    CMenuItemRecord* LocateRecordByText(const wchar_t* text);
    // Index of the record in this menu, under the same condition; -1 for none.
    int GetItemPosition(const wchar_t* text) const;
    // By the platform's captions, which only the plain top level of a loaded menu has. Null for none.
    CMenu* FindSubMenuByText(const char* text) const;
    // The sub-menu behind the record of a caption; null for none.
    COwnerDrawMenu* FindSubMenuOfRecord(const wchar_t* text);
    COwnerDrawMenu* FindSubMenuOfRecord(const char* text);
    // The sub-menu at a position, or null.
    CMenu* GetSubMenuAt(int position) const;
    static bool IsRegisteredSubMenu(const CMenu* menu);
    static bool IsRegisteredSubMenu(HMENU menu);
    // The record with this item data, in this menu or in a menu object below it; null for none.
    CMenuItemRecord* FindRecord(ULONG_PTR itemData) const;

    // The text of an item's record, by position with MF_BYPOSITION, else by command id at any depth. False for an item
    // without a record. Records without items answer to their index in `itemRecords`.
    bool ReadItemText(UINT position, std::string& text, UINT flags);
    bool WriteItemText(UINT position, const wchar_t* text, UINT flags);
    bool WriteItemText(UINT position, const char* text, UINT flags);

    // The result of WM_MENUCHAR for a popup: executes the first item whose caption has the character behind a `&`.
    // 0 for none, without a menu, and for flags without MF_POPUP.
    static LRESULT FindShortcut(UINT character, UINT flags, COwnerDrawMenu* menu);

    // Keeping records and platform menu in step.
    // Rebuilds the records from the platform menu after it was changed directly; records that still match are kept.
    void SynchronizeRecords();
    static void SynchronizeMenu(COwnerDrawMenu* menu);
    // Pads captions with spaces so that the accelerators of this menu stand in one column.
    void PadAccelerators();
    // How many items of the platform's own stand at the head of a loaded menu.
    int CountForeignItems() const;
    // Gives the pop-up items of a loaded menu's top level their plain captions again.
    void ReattachTopLevelPopups();

    // Settings; images that are already there stay as they are.
    void SetImageSize(int width, int height) {
        imageWidth = width;
        imageHeight = height;
    }
    void SetMaskColor(COLORREF color) {
        maskColor = color;
        maskColorSet = true;
    }
    void ClearMaskColor() { maskColorSet = false; }
    void SetEmbossViaDib(bool on) { embossViaDib = on; }
    bool GetEmbossViaDib() const { return embossViaDib; }
    // The transparent colour of bitmaps that are added.
    COLORREF TransparentColor() const { return maskColorSet ? maskColor : ::GetSysColor(COLOR_3DFACE); }

    // Images.
    static constexpr UINT imageListFlags = ILC_COLORDDB | ILC_MASK; // of every list but the check marks'
    // Adds the bitmap resource masked, and in the modern look its washed-out and shadow companions behind it.
    bool AddBitmapToList(CImageList& list, int resourceId);
    // Puts the image of a command into the shared store, replacing the one that is there. Its index there, or -1.
    int AddSharedImage(const CImageList& list, int index, UINT id);
    static int FindSharedImage(UINT id);
    static bool HasRaisedSet(int index);
    // Makes `target` a list of that one image, with its companions in the modern look.
    bool CopyImageToList(const CImageList* source, int index, CImageList& target);
    // The image at the menu's image size, its transparent parts in the face colour.
    bool ImageToBitmap(const CDC& dc, const CImageList& list, int index, CBitmap& bitmap) const;
    static void MakeWashedImage(CBitmap& bitmap);
    static void MakeShadowImage(CBitmap& bitmap);
    // A rectangle of `size` centred in a new bitmap of `imageSize`.
    static void MakeSwatch(const CDC& dc, CBitmap& bitmap, CSize size, CSize imageSize, COLORREF fill, COLORREF border,
                           int hatch);
    // Check marks of the items, by bitmap resources; both ids above 0, or nothing happens.
    void LoadCheckImages(int clearId, int selectedId);
    // Where a command's image stands in the strip of a toolbar resource; whether the command stands there at all. Index
    // 0 is not written.
    static bool LookUpToolbarImage(UINT commandId, UINT toolbarId, int& index);
    // Gives the items of the toolbar's commands its images.
    bool LoadToolbarImages(UINT toolbarId);
    bool LoadToolbarImageSet(const UINT* toolbarIds, int count);
    void AddToolbarImages(const CMenuToolBar& toolbar, int bitmapId);

    // Colours and disabled images.
    static COLORREF BlendTowardWhite(COLORREF color, double factor);
    static COLORREF BlendTowardBlack(COLORREF color, double factor);
    static void EmbossImage(const CDC& target, int x, int y, int width, int height, const CBitmap& bitmap, int sourceX,
                            int sourceY, COLORREF background);
    static void EmbossImageDib(const CDC& target, int x, int y, int width, int height, const CBitmap& bitmap,
                               int sourceX, int sourceY, COLORREF background);

    // The system and the look, asked anew at each call.
    static bool HasNewShell() { return windowsVersion >= Windows95; }
    static bool IsThemedXp() { return windowsVersion == WindowsXp && !IsClassicThemeActive(); }
    static bool IsModernLook() { return (IsThemedXp() ? lookOnThemedXp : lookOnOtherSystems) == 1; }
    // Whether the user's theme is the classic one; read once.
    static bool IsClassicThemeActive();
    // This system's.
    static WindowsVersion QueryWindowsVersion();

    std::vector<std::unique_ptr<CMenuItemRecord>> itemRecords; // one for each item
    std::vector<HMENU> subMenus;                               // handles of the pop-up items
    std::int32_t imageWidth = 16;                              // pixels
    std::int32_t imageHeight = 15;
    COLORREF maskColor = RGB(0xC0, 0xC0, 0xC0); // transparent colour of added bitmaps, if `maskColorSet`; else face
    bool maskColorSet = false;
    bool embossViaDib = false;               // disabled images by EmbossImageDib
    std::shared_ptr<CImageList> checkImages; // check marks: of the unselected item, of the selected one
    bool checkImagesShared = false;          // they are the parent's
    std::int32_t checkSelectedId = -1;       // bitmap resources of the check marks; in use if above 0
    std::int32_t checkClearId = -1;
    bool loadedFromResource = false; // never cleared

    // Class-wide, torn down after every menu of static storage: a source that defines one has seen this first.
    inline static std::int32_t windowsVersion = QueryWindowsVersion();
    inline static std::int32_t lookOnThemedXp = 1;     // 1: modern look on a themed XP; else classic
    inline static std::int32_t lookOnOtherSystems = 0; // the same everywhere else
    inline static std::int32_t raisedImages = 1;       // images have companions and a wider column
    inline static std::int32_t selectDisabledModern = 0;
    inline static std::int32_t selectDisabledClassic = 1;
    inline static std::vector<HMENU> allSubMenus;   // every handle that any menu has taken in, perhaps more than once
    inline static CImageList sharedImages;          // made at the first use
    inline static std::vector<UINT> sharedImageIds; // the command of each shared image

private:
    enum class Removal { Remove, Delete };

    void RegisterSubMenu(UINT_PTR id, std::int32_t position);
    // A new record at the index; at the end for an index outside the array.
    CMenuItemRecord& MakeRecord(std::int32_t index, const wchar_t* text, UINT flags, UINT_PTR id);
    // A heap object with a new popup and this menu's check images; null if the platform has no menu left.
    std::unique_ptr<COwnerDrawMenu> MakeSubMenu() const;

    // The record's shared image: by way of a resource, or for -1 the one that its command has already.
    void TakeImage(CMenuItemRecord& record, int iconId);
    // The image of a command from a bitmap or toolbar resource, by way of the shared store. False, with `sharedIndex`
    // untouched, if the bitmap can't be loaded.
    bool LoadSharedImage(int iconId, UINT id, std::int32_t& sharedIndex);
    // The images of a bitmap resource alone, without companions, which would stand where the images of a longer strip
    // do. Empty if it can't be loaded.
    CImageList LoadStrip(int resourceId, CSize imageSize) const;
    // A list of this one image, masked; null for null.
    std::unique_ptr<CImageList> ListOfBitmap(const CBitmap* bitmap) const;

    template <class GiveImage>
    bool ModifyItems(const wchar_t* text, UINT id, GiveImage giveImage);
    CMenuItemRecord* RecordOf(UINT position, UINT flags);
    // Finds the item of each record and notes it there, in `seen`.
    void MatchRecords() const;
    // The record for which MatchRecords has found the item at a position; null for none.
    CMenuItemRecord* MatchedRecord(int position) const;
    // The record that the item's data names, else the matched one; null for none.
    CMenuItemRecord* RecordOfItem(int position) const;
    int PositionOf(const CMenuItemRecord& record) const; // of its item; -1 for none
    // The same, and where the item has none, the one at that index if no other item has it.
    CMenuItemRecord* RecordAt(int position) const;
    // A new record for an item that has none, at the item's place among the records; at the end for position -1.
    CMenuItemRecord& MakeRecordOfItem(int position, UINT id);

    bool TakeOut(UINT position, UINT flags, Removal removal);
    int TakeOutByText(const wchar_t* text, int neighbours, Removal removal);
    void DropSubMenu(HMENU subMenu, Removal removal);
    void DropRecord(const CMenuItemRecord* record);

    bool BuildFromTemplate(std::span<const std::byte> resource);
};
