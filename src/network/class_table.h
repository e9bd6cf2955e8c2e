#pragma once

#include "network/cls_internet.h"

namespace tovera {

template <>
struct ClassTable<Cls_Internet> {
    using C = Cls_Internet;
    static constexpr std::string_view name = "Cls_Internet";
    static constexpr std::string_view help = "Adresse IP, nom d'hote, téléchargement de fichiers...";
    static constexpr std::tuple members{
        propertyRead<&C::NSession>("NSession"),
        unpublishedWrite<&C::setNSession>("NSession", "NSession"),
        propertyAssign<&C::setNSession>("NSession", "NSession"),
        method<&C::GetIPAddress>("GetIPAddress", "Renvoie l'adresse IP de la machine locale"),
        method<&C::GetIPHostName>("GetIPHostName", "Renvoie le nom d'hote de la machine locale"),
        method<&C::TelechargeFichier>("TelechargeFichier",
                                      "Telecharge le Fichier de l'URL vers le fichier fourni en paramètre",
                                      "sURL", "sLocalFile"),
        method<&C::GetMACAddress>("GetMACAddress",
                                  "Renvoie l'adresse MAC de la carte réseau de la machine locale"),
        method<&C::GetHostNameFromIP>("GetHostNameFromIP",
                                      "Renvoie le nom d'hote d'une machine à partir de son Adresse IP.",
                                      "sAddress"),
        method<&C::GetIPFromHostName>("GetIPFromHostName", "", "sHostName"),
        method<&C::EcrireEmail_LotusNotes>("EcrireEmail_LotusNotes", "", "EmailDest", "strSujet",
                                           "Messagetext", "Attachment", "AccuseMsgbox"),
        method<&C::EcrireEmail_OutlookExpress>(
            "EcrireEmail_OutlookExpress", "Créer un email sous Outlook Express avec les paramètres fournis.",
            "MsgFrom", "MsgTo", "MsgCC", "MsgBCC", "MsgSubject", "MsgPriority", "MsgMessage"),
        method<&C::GetDNSServers>(
            "GetDNSServers",
            "Renvoie le serveur DNS courrant, et la liste des autres serveurs DNS ( Dynamic Name System)",
            "sCurrentDNSServer", "dnssvr"),
        method<&C::GetUserName>("GetUserName", ""),
        method<&C::ExecuterURL>("ExecuterURL", "Execute une adresse de type http.", "strURL", "hwnd"),
        method<&C::PartageRep>(
            "PartageRep",
            "Partage un répertoire (\\\\Nom de l'ordinateur, Chemin du rép, Nom du partage, Commentaire, "
            "Password). Renvoie 0 si c'est OK; 2118, si le partage existe déjà, et autre chose si c'est une "
            "erreur.",
            "sServer", "sSharePath", "sShareName", "sShareRemark", "sSharePw"),
    };
};

}  // namespace tovera
