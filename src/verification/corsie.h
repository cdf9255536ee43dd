#pragma once

// Load sets side by side: W doubles in one vector of the compiler, each lane with the operations of
// the scalar calculation in the same order, so with the same bits. Branches become masks.
// Everything here has internal linkage: units that are compiled for a wider machine share no code
// with others.
namespace tk07 {
namespace {

#define TK07_CORSIE inline __attribute__((always_inline))

template <int W>
struct Corsie {
    typedef double V __attribute__((vector_size(8 * W)));     // values
    typedef long long M __attribute__((vector_size(8 * W)));  // masks: all bits set or none

    static TK07_CORSIE V Tutte(double x) { return V{} + x; }
    static TK07_CORSIE M Bit(const V& v) { return __builtin_bit_cast(M, v); }
    // The value where the mask is set, else +0.
    static TK07_CORSIE V Dove(const M& m, const V& v) { return __builtin_bit_cast(V, m & Bit(v)); }
    static TK07_CORSIE V Scegli(const M& m, const V& si, const V& no) {
        return __builtin_bit_cast(V, (m & Bit(si)) | (~m & Bit(no)));
    }
    static TK07_CORSIE V Ass(const V& v) {
        return __builtin_bit_cast(V, Bit(v) & (M{} + 0x7fffffffffffffffLL));
    }
};

}  // namespace
}  // namespace tk07
