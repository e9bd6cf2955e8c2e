#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// Easter, working days, and the forms of dates and times.
class Cls_Date {
  public:
    explicit Cls_Date(Platform& platform = home()) : platform_(platform) {}

    /// Easter Sunday of a year from 1900 to 2099; the rule isn't refused for other years.
    Date Paques(const Variant& Annee);

    /// A date text with its first two fields swapped, cut by fixed position: jj/mm/aaaa to mm/jj/aaaa.
    Variant DateFRtoUS(const Bstr& strDateFR);
    /// The same the other way round.
    Variant DateUStoFR(const Bstr& strDateUS);

    /// Seconds as HH:MM:SS; the hours don't stop at 24.
    Bstr SecondeEnHeure(I4 Seconde);
    /// Whole seconds since midnight, 0 to 86399.
    I4 HeureEnSeconde(Date Heure);
    /// Seconds from one moment of a day to another, past midnight when the first is the later one.
    I4 Chrono(I4 DepartSec, I4 ArriveeSec);

    /// Mondays to Fridays of a month; holidays don't come into it.
    I2 NBJoursOuvrablesParMois(I2 intAnnee, I2 intMois);
    /// Mondays to Fridays from one date to another, both included.
    I2 NBJoursOuvrables(Date DateDebut, Date DateFin);

  private:
    Platform& platform_;
};

}  // namespace tovera
