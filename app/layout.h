// Where the controls of the main window go at any size. Measures are twips.
#pragma once

namespace varno {

// What the layout sets; everything else keeps its design value.
struct MainLayout {
    int messageWidth;
    int richTextWidth;
    int richTextHeight;
    int ticketNameWidth;
    int ticketListLeft;
    int ticketListHeight;
    int uploadLeft;
    int downloadLeft;
    int transferTop;    // of both transfer buttons
    int listNameRight;  // the label's right edge lies on the list's
    int framesLeft;

    bool operator==(const MainLayout&) const = default;
};

// `outerWidth` and `outerHeight` of the window; less than its minimum counts as the minimum.
MainLayout LayOutMainWindow(int outerWidth, int outerHeight, int ticketListWidth);

}  // namespace varno
