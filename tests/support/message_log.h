#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/values.h"
#include "frame/messages.h"
#include "platform/text.h"
#include "platform/window.h"

namespace quillon {

/// A host without a window: it writes down what the panes post to it.
class MessageLog : public CWnd {
public:
    using CWnd::CWnd;

    LRESULT OnMessage(const MSG& message) override {
        const std::string_view full = RegisteredMessageName(message.message);
        std::string line(full.substr(0, full.find('-')));
        const bool redraw = message.message == UM_REDRAW_CHART || message.message == UM_REDRAW_VECTOR_DISPLAY;
        if (redraw && message.wParam != 0) {
            const tagXY& point = *reinterpret_cast<const tagXY*>(message.wParam);
            line += Format(" %.3f, %.3f", point.x, point.y);
        } else if (message.wParam != 0) {
            line += Format(" %zu", message.wParam);
        }
        lines.push_back(line);
        return 0;
    }

    std::vector<std::string> lines;
};

}  // namespace quillon
