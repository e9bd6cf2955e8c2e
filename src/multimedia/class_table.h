#pragma once

#include "multimedia/cls_multimedia.h"

namespace tovera {

template <>
struct ClassTable<Cls_Multimedia> {
    using C = Cls_Multimedia;
    static constexpr std::string_view name = "Cls_Multimedia";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        method<&C::FermerCD>("FermerCD", ""),
        method<&C::OuvrirCD>("OuvrirCD", ""),
        method<&C::JouerUnWav>("JouerUnWav", "", "Fichier"),
        method<&C::ReglageVolume>("ReglageVolume", "", "Grand"),
        method<&C::CarteSonPresente>("CarteSonPresente", ""),
        method<&C::OuvrirMP3>("OuvrirMP3", "", "strNomFichier", "blnJouerFichier"),
        method<&C::JouerMP3>("JouerMP3", ""),
        method<&C::StopMP3>("StopMP3", ""),
        method<&C::PauseMP3>("PauseMP3", ""),
        method<&C::FrequenceFichierWAV>("FrequenceFichierWAV", "", "CheminFichierWAV"),
        method<&C::NoSerieDisque>("NoSerieDisque", "", "strDrive"),
        method<&C::EstCDROM>("EstCDROM", "", "strLettreDrive"),
        method<&C::EstDisqueDur>("EstDisqueDur", "", "strLettreDrive"),
        method<&C::EstDisqueReseau>("EstDisqueReseau", "", "strLettreDrive"),
        method<&C::EstDisquette>("EstDisquette", "", "strLettreDrive"),
        method<&C::TypePeripherique>("TypePeripherique", "", "strLettreDrive"),
        method<&C::ResolutionEcranX>("ResolutionEcranX", ""),
        method<&C::ResolutionEcranY>("ResolutionEcranY", ""),
    };
};

}  // namespace tovera
