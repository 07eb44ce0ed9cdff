#pragma once

#include <cfenv>

namespace vastrel {

/// Watches the floating-point flags of one thread over a computation.
///
/// The flags are cleared when the scope opens; Check() turns a raised flag into a RunTimeError: division by
/// zero (11) before overflow (6) before an invalid operation (5), since the later ones follow from the
/// earlier. The flags of the surrounding code come back when the scope closes.
///
/// A compiler may move a division across a test of the flags inside one function, so the scope is opened
/// and checked in another source file than the arithmetic: use RunProcedure.
class ArithmeticScope {
public:
    ArithmeticScope();
    ~ArithmeticScope();
    ArithmeticScope(const ArithmeticScope&) = delete;
    ArithmeticScope& operator=(const ArithmeticScope&) = delete;

    /// Raises the error of a fault that has happened since the scope opened; `source` names the procedure.
    void Check(const char* source) const;

private:
    std::fenv_t outer_;
};

} // namespace vastrel
