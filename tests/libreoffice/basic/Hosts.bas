Dim pumped As Boolean
Dim posts As Long, postUntil As Long

' Objects of the host that fail in the middle of a call, and such that come back.
Sub HostsRun
    Dim traduction, probe, windows, internet, back
    traduction = CreateUnoService("KADRELDLL.Cls_Traduction")
    probe = CreateUnoService("tovera.tests.Probe")
    Same "a form that raises", traduction.Sauver_LangueFeuille(probe, "C:\probe.lng"), ""
    traduction.Sauver_LangueFeuille(CreateUnoService("tovera.tests.TypedForm"), "C:\typed.lng")
    Same "a character, and a whole number of 64 bits", _
        CreateUnoService("KADRELDLL.Cls_InitREG").IniLire("É", "É.Caption", "absent", "C:\typed.lng"), "9007199254740993"
    Same "a form that has no parts", traduction.Charger_LangueFeuille(StarDesktop, "C:\probe.lng"), "Fichier inexistant."

    internet = CreateUnoService("KADRELDLL.Cls_Internet")
    internet.NSession = probe
    back = internet.NSession
    Same "the same object", EqualUnoObjects(back, probe), True
    internet.NSession = internet
    back = internet.NSession
    Same "an object of its own", EqualUnoObjects(back, internet), True
    internet.NSession = Nothing
    Same "no object", IsNull(internet.NSession), True

    internet = CreateUnoService("KADRELDLL.Cls_Internet")
    internet.EcrireEmail_LotusNotes("marie@exemple.fr", "Sujet", "Bonjour", "", False)
    Same "calls on an object by its service's name", CreateUnoService("Notes.Notessession").Asked(), _
        "GETDATABASE() OPENMAIL() CREATEDOCUMENT() REPLACEITEMVALUE(Subject) REPLACEITEMVALUE(Body) " & _
        "REPLACEITEMVALUE(SendTo) SEND() "

    windows = CreateUnoService("KADRELDLL.Cls_Windows")
    Begins "the number of an error inside the host's object", Failing(windows, "hwnd", probe), "380 "
    Has "an error inside the host's object", Failing(windows, "hwnd", probe), "raised by the host"

    EnableReschedule(False) ' Basic itself would serve it between two statements
    pumped = False
    CreateUnoService("com.sun.star.awt.AsyncCallback").addCallback( _
        CreateUnoListener("Pumped_", "com.sun.star.awt.XCallback"), Empty)
    Same "an event that waits", pumped, False
    windows.Wait(1)
    Same "served while a member waits", pumped, True

    posts = 0
    postUntil = GetSystemTicks() + 5000
    PostAgain
    windows.Wait(1)
    Same "a wait ends although events post events", GetSystemTicks() < postUntil, True
    Same "which are served meanwhile", posts > 1, True
    postUntil = 0
    windows.Wait(1)
    EnableReschedule(True)
End Sub

Sub PostAgain
    CreateUnoService("com.sun.star.awt.AsyncCallback").addCallback( _
        CreateUnoListener("Posting_", "com.sun.star.awt.XCallback"), Empty)
End Sub

Sub Posting_notify(data)
    posts = posts + 1
    If GetSystemTicks() < postUntil Then PostAgain
End Sub

Sub Pumped_notify(data)
    pumped = True
End Sub
