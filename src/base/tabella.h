#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "base/errore.h"

namespace tk07 {

// Array whose indices run from Lo to Hi, both included, so that bolt 1 and load set 0 are written
// as they are told: Tab1<double, 0, 100> Xbull, used as Xbull(i).
// An index out of bounds is a fatal fault, never a write outside the array.
template <class T, int Lo, int Hi>
class Tab1 {
  public:
    static constexpr int kLo = Lo;
    static constexpr int kHi = Hi;

    T& operator()(long i) { return v_[Posto(i)]; }
    const T& operator()(long i) const { return v_[Posto(i)]; }
    void Riempi(const T& x) { v_.fill(x); }
    // Elements da..a (both included) as a span, checked once: for inner loops.
    std::span<const T> Tratto(long da, long a) const {
        if (a < da) return {};
        return {&v_[Posto(da)], Posto(a) - Posto(da) + 1};
    }
    bool operator==(const Tab1&) const = default;

  private:
    static std::size_t Posto(long i) {
        if (i < Lo || i > Hi) IndiceFuori(i, Lo, Hi);
        return static_cast<std::size_t>(i - Lo);
    }
    std::array<T, static_cast<std::size_t>(Hi - Lo + 1)> v_{};
};

// Table of results by load set (rows 0..n-1, sized by what is in use) and a second index from Lo to
// Hi or to the last column in use; always bounds-checked.
template <class T, int Lo, int Hi>
class TabPerSestetto {
  public:
    // All elements become T{}. `ultima` from Lo to Hi: the columns beyond it are not there.
    void Dimensiona(long righe, long ultima = Hi) {
        if (ultima < Lo || ultima > Hi) IndiceFuori(ultima, Lo, Hi);
        righe_ = righe < 0 ? 0 : righe;
        ultima_ = ultima;
        v_.assign(static_cast<std::size_t>(righe_) * Colonne(), T{});
    }
    T& operator()(long s, long i) { return v_[Posto(s, i)]; }
    const T& operator()(long s, long i) const { return v_[Posto(s, i)]; }
    long Righe() const { return righe_; }
    // Elements (s, da) .. (s, last in use) as a span, checked once: for inner loops.
    std::span<T> Riga(long s, long da = Lo) {
        const std::size_t primo = Posto(s, da);
        return {v_.data() + primo, static_cast<std::size_t>(ultima_ - da + 1)};
    }

    std::span<const T> Riga(long s, long da = Lo) const {
        const std::size_t primo = Posto(s, da);
        return {v_.data() + primo, static_cast<std::size_t>(ultima_ - da + 1)};
    }

  private:
    std::size_t Colonne() const { return static_cast<std::size_t>(ultima_ - Lo + 1); }
    std::size_t Posto(long s, long i) const {
        if (s < 0 || s >= righe_) IndiceFuori(s, 0, righe_ - 1);
        if (i < Lo || i > ultima_) IndiceFuori(i, Lo, ultima_);
        return static_cast<std::size_t>(s) * Colonne() + static_cast<std::size_t>(i - Lo);
    }
    long righe_ = 0, ultima_ = Hi;
    std::vector<T> v_;
};

}  // namespace tk07
