// A small JSON writer for the command line's --json output.
#pragma once

#include <string>
#include <string_view>

namespace vesmo::cli {

// A JSON string literal, quoted and escaped.
std::string JsonTesto(std::string_view s);
// A number with enough digits to read back the same double.
std::string JsonNumero(double v);

// Builds one object or array; values are appended already in JSON form.
class JsonOggetto {
public:
    JsonOggetto& Campo(std::string_view nome, const std::string& valoreJson);
    JsonOggetto& Numero(std::string_view nome, double v) { return Campo(nome, JsonNumero(v)); }
    JsonOggetto& Testo(std::string_view nome, std::string_view t) {
        return Campo(nome, JsonTesto(t));
    }
    std::string str() const { return "{" + corpo_ + "}"; }

private:
    std::string corpo_;
};

class JsonLista {
public:
    JsonLista& Valore(const std::string& valoreJson);
    std::string str() const { return "[" + corpo_ + "]"; }

private:
    std::string corpo_;
};

} // namespace vesmo::cli
