// The controls of the two birth data forms (frmMainVesmo, frmInDatiLyx) as plain texts and list
// indexes, and the routines that show a chart on them and read it back: MostraTema, LeggiTema,
// MostraLongitudine, MostraLatitudine, the LMT box and the checks on leaving a date box.
#pragma once

#include <string>

#include "core/Messaggi.h"
#include "core/Tema.h"

namespace vesmo {

struct CampiModulo {
    std::string Text1;                          // Nome
    std::string Text19;                         // nation
    std::string Text2;                          // city
    std::string Text3, Text4, Text5;            // day, month, year
    std::string Text6, Text7;                   // hour, minute
    std::string Tag3, Tag4, Tag5, Tag6, Tag7;   // what each date box held when last handled
    std::string Text22, Text23;                 // summer time, hours and minutes
    std::string Text8, Text18;                  // zone, hours and minutes; 99 is local mean time
    bool chkSolare = false;                     // LMT
    std::string TagChkSolare;                   // "Ok" when the resolution chose local mean time
    std::string Text9, Text10, Text11, Text12;  // longitude, split or decimal
    std::string Text13, Text14, Text15, Text16; // latitude, split or decimal
    int List2 = 0;                              // 0 east, 1 west
    int List3 = 0;         // 0 degrees split, 1 hours split, 2 degrees decimal, 3 hours decimal
    int List4 = 0;         // 0 north, 1 south
    int List5 = 0;         // 0 degrees split, 1 degrees decimal
    std::string Pannello2; // second panel of the status bar
};

// The texts of the unit lists.
extern const char* const VociList2[2];
extern const char* const VociList3[4];
extern const char* const VociList4[2];
extern const char* const VociList5[2];

// A number written in a box: the comma is the decimal separator (a dot is taken as one too);
// blanks around it are allowed. Empty or not a number: false.
bool NumeroDaCasella(const std::string& testo, double& valore);
// A number in the workstation's style: "12,5", "0", "-3".
std::string CasellaDaNumero(double valore);

void MostraLongitudine(const Tema& tema, CampiModulo& c, int indice);
void MostraLatitudine(const Tema& tema, CampiModulo& c);
// The click of chkSolare: ticked, zone 99 and no summer time; cleared, the record's zone and
// summer time.
void ClickSolare(const Tema& tema, CampiModulo& c);
// Shows the record on every control (and the province mark on the status bar).
void MostraTema(const Tema& tema, CampiModulo& c);
// Reads every control into the record. With no city, or a box that holds no number, a message
// tells it and the record keeps what it held: false.
bool LeggiTema(const CampiModulo& c, Tema& tema, Messaggi& messaggi);
// The check of Text3 (giorno true) or Text4 on leaving the box: 0 or below gives the message
// and false (the focus goes back).
bool ControllaGiornoMese(const std::string& testo, bool giorno, Messaggi& messaggi);

} // namespace vesmo
