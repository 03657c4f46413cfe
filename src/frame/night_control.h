#pragma once

namespace quillon {

/// A control with colours for day and for night.
class NightControl {
public:
    virtual ~NightControl() = default;
    virtual void SetNightMode(bool night) = 0;
};

}  // namespace quillon
