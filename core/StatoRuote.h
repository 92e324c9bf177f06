// The session's switches of the wheels and of the aspect selection: which aspect lines are drawn,
// who opened the selection, which planetary nodes the wheel shows, and whether the positions
// window shows the transit slot. One object, the session's (`Sessione::Ruote`), shared by the
// single and the double wheel and kept when the user leaves the chart half and comes back; the
// display forms get it by reference. Nothing of it is written to disk. 16-bit flags hold -1 for
// true.
#pragma once

#include <cstdint>

namespace vesmo {

struct StatoRuote {
    // The single wheel draws its aspect lines; on the double wheel, the lines between the inner
    // chart's points.
    std::int16_t DisegnaAspetti = 0;
    // The double wheel: lines between the outer chart's points, and between inner and outer.
    std::int16_t DisegnaAspettiEst = 0;
    std::int16_t DisegnaAspettiCmp = 0;
    // The aspect selection compares two different charts (rows inner, columns outer).
    std::int16_t AspettiComparati = 0;
    // The aspect selection was opened from the positions window, or from the printing form: on
    // closing it redraws that form's wheel.
    std::int16_t SelezioneDaPosizioni = 0;
    std::int16_t SelezioneDaStampe = 0;
    // The row of the node list in force (0 no planetary nodes); survives the positions window.
    std::int32_t NodiScelti = 0;
    // True while the positions window shows the transit slot: set by the menu before the window
    // is made, read at its load (only then the time-stepping toolbar shows), cleared at its close.
    std::int16_t TransitoPosizioni = 0;
    // The wheels are drawn for few colours: no bevel on the sign ring, a plain background fill.
    // Set by the wheel colours form; 0 at the start of the program.
    std::int16_t ColoriRidotti = 0;
};

} // namespace vesmo
