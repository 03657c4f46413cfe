#pragma once

#include "foundation/angle_text.h"
#include "platform/property_grid.h"

namespace quillon {

/// A row that holds an angle, shown in the notation that the operator has chosen for angles of its type and taken in
/// any of them (ReadAngle). Accepting what is shown, untouched, changes nothing, however few decimals it has.
///
/// The notation is read from the settings at each showing, through the window of the list that the row stands in.
class CAngleRow : public CMFCPropertyGridProperty {
public:
    ROW_KIND GetKind() const override { return ROW_KIND::ANGLE; }
    int GetAngleType() const { return angleType; }
    std::string FormatProperty() const override;
    bool Parse(std::string_view text, RowValue& parsed) const override;
    bool Accept(const RowValue& candidate) const override;
    std::string WhyRefused(std::string_view text) const override;

protected:
    /// The value in radians, and the value that so many degrees are.
    virtual double Radians() const = 0;
    virtual double FromDegrees(double degrees) const = 0;

    CAngleRow(std::string_view name, double value, int type, std::string_view description, UINT id)
        : CMFCPropertyGridProperty(name, value, description, id), angleType(type) {}

private:
    int angleType;
};

/// An angle in radians of an ANGLE_TYPE: a latitude, a longitude, a bearing.
class CMFCPropertyGridAngleProperty : public CAngleRow {
public:
    CMFCPropertyGridAngleProperty(std::string_view name, double value, int type, std::string_view description, UINT id)
        : CAngleRow(name, value, type, description, id) {}

protected:
    double Radians() const override { return Get<double>(); }
    double FromDegrees(double degrees) const override;
};

/// Of an angle row in degrees: a bearing with the decimals of the settings, or with two at most; a convergence, which
/// has a sign.
enum AS_MODE : std::int32_t { AS_FULL = 0, AS_SHORT = 1, AS_CONVERGENCE = 5 };

/// A heading or bearing in degrees, 0 to 360, or a convergence.
class CMFCPropertyGridAngleDouble : public CAngleRow {
public:
    CMFCPropertyGridAngleDouble(std::string_view name, double degrees, int mode, std::string_view description, UINT id)
        : CAngleRow(name, degrees, TypeOf(mode), description, id) {}

protected:
    double Radians() const override;
    double FromDegrees(double degrees) const override { return degrees; }

private:
    static int TypeOf(int mode) {
        if (mode == AS_CONVERGENCE) return ANGLE_SIGNED_180_SHORT;
        return mode == AS_SHORT ? ANGLE_BEARING_SHORT : ANGLE_BEARING;
    }
};

}  // namespace quillon
