#include "app/layout.h"

#include <algorithm>

#include "app/main_window_design.h"

namespace varno {

MainLayout LayOutMainWindow(int outerWidth, int outerHeight, int ticketListWidth) {
    const int width = std::max(outerWidth, MinimumWidth);
    const int height = std::max(outerHeight, MinimumHeight);
    const int richTextWidth = width - 2295;
    const int richTextHeight = height - 1425;
    const int ticketListLeft = width - 1290;
    return {.messageWidth = width - 405,
            .richTextWidth = richTextWidth,
            .richTextHeight = richTextHeight,
            .ticketNameWidth = richTextWidth - 1320,
            .ticketListLeft = ticketListLeft,
            .ticketListHeight = richTextHeight - 650,
            .uploadLeft = width - 1360,
            .downloadLeft = width - 770,
            .transferTop = height - 1500,
            .listNameRight = ticketListLeft + ticketListWidth,
            .framesLeft = width - 2130};
}

}  // namespace varno
