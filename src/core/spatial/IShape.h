#pragma once

namespace vastrel {

/// What all classes of the shape model have: a class name that is known at run time.
class ShapeObject {
public:
    virtual ~ShapeObject() = default;
    virtual const char* ClassName() const = 0;
};

/// The one interface of the shapes: a bounding box, a null flag, and the distance to another shape, in the
/// units of the coordinates. An IShape of its own does nothing and gives 0 and false.
class IShape : public ShapeObject {
public:
    const char* ClassName() const override { return "IShape"; }

    virtual double Top() const { return 0; }
    virtual double Bottom() const { return 0; }
    virtual double Left() const { return 0; }
    virtual double Right() const { return 0; }
    virtual bool IsNull() const { return false; }
    virtual void MakeNull(bool) {}
    virtual double Distance(const IShape&) const { return 0; }
};

/// The answer of the shapes that cannot tell a distance: a message "NOT IMPLEMENTED", and 0.
double DistanceNotImplemented();

/// Whether the object is of this class.
bool IsOfClass(const ShapeObject& object, const char* className);

} // namespace vastrel
