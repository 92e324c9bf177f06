#include "timecharts/OrologioLuogo.h"

#include <cmath>
#include <cstdio>

#include "core/Aritmetica.h"
#include "core/Testo.h"
#include "places/ModelloLuoghi.h"
#include "timecharts/Istanti.h"

namespace vesmo {

std::string MomentoLocale::Data() const {
    char s[32];
    std::snprintf(s, sizeof s, "%02d/%02d/%04d", giorno, mese, anno);
    return s;
}

std::string MomentoLocale::Ora() const {
    char s[16];
    std::snprintf(s, sizeof s, "%02d:%02d:%02d", ore, minuti, secondi);
    return s;
}

MomentoLocale MomentoConFuso(double jd, double fuso, double estiva) {
    const double locale = jd + (estiva - fuso) / 24;
    double zero = GiornoZero(locale);
    long long s = std::llround((locale - zero) * 86400);
    // A second rounded up to midnight, or a day boundary met by the rounding of the date.
    while (s >= 86400) {
        zero = GiornoZero(zero + 1.5);
        s -= 86400;
    }
    while (s < 0) {
        zero = GiornoZero(zero - 0.5);
        s += 86400;
    }
    float anno, mese, giorno;
    DataDaGiuliano(zero + 0.25, anno, mese, giorno);
    MomentoLocale m;
    m.anno = static_cast<int>(anno);
    m.mese = static_cast<int>(mese);
    m.giorno = static_cast<int>(giorno);
    m.ore = static_cast<int>(s / 3600);
    m.minuti = static_cast<int>(s / 60 % 60);
    m.secondi = static_cast<int>(s % 60);
    m.fuso = fuso;
    m.estiva = estiva;
    return m;
}

OrologioLuogo::OrologioLuogo(const std::string& file, const Tema& tema) : tema_(tema) {
    if (file.empty()) return;
    try {
        db_.Apri(file);
        auto m = std::make_unique<ModelloLuoghi>(db_, messaggi_, 'N');
        const std::string city = SenzaSpaziDestra(tema.City.Valore());
        m->Data5.Seek("=", tema.cNaz);
        if (m->Data5.NoMatch()) return;
        for (m->Data2.Seek("=", m->Data5.Campo("Nazione"));
             !m->Data2.NoMatch() && !m->Data2.Eof() &&
             m->Data2.Campo("cNaz").Intero() != tema.cNaz;)
            m->Data2.MoveNext();
        if (m->Data2.NoMatch() || m->Data2.Eof()) return;
        m->Data1.Seek("=", tema.cNaz, city);
        if (m->Data1.NoMatch()) return;
        m->segnalibroNazione = m->Data2.Bookmark();
        modello_ = std::move(m);
    } catch (const std::exception&) {
        modello_.reset();
    }
}

OrologioLuogo::~OrologioLuogo() = default;

MomentoLocale OrologioLuogo::Locale(double jd) {
    double fuso = tema_.Fuso, estiva = tema_.Estiva;
    MomentoLocale m = MomentoConFuso(jd, fuso, estiva);
    if (!modello_) return m;
    // The zone and summer time of the local moment, found again until the moment they give
    // stays the same (twice is enough but at a change of the clock).
    for (int giro = 0; giro < 3; ++giro) {
        modello_->campi.Text3 = std::to_string(m.giorno);
        modello_->campi.Text4 = std::to_string(m.mese);
        modello_->campi.Text5 = std::to_string(m.anno);
        modello_->campi.Text6 = std::to_string(m.ore);
        modello_->campi.Text7 = std::to_string(m.minuti);
        modello_->campi.TagChkSolare.clear();
        Tema t;
        try {
            modello_->ImportaCity(t);
        } catch (const std::exception&) {
            return m;
        }
        messaggi_.registro.clear();
        if (t.Fuso == fuso && t.Estiva == estiva) break;
        fuso = t.Fuso;
        estiva = t.Estiva;
        m = MomentoConFuso(jd, fuso, estiva);
    }
    return m;
}

} // namespace vesmo
