#include <array>
#include <filesystem>
#include <fstream>
#include <shlobj.h>

#include "client/form.h"
#include "client/invocation.h"
#include "client/recorder.h"

// What the class starts, changes and finds, on the system's own entry points.
namespace tovera::client {
namespace {

Pointer<IDispatch> windows() {
    return Component::loaded().create<Cls_Windows, IDispatch>();
}

TEST(Launchers, ReachThePrograms) {
    const Recorder recorder;
    ASSERT_TRUE(recorder.standsFor(L"rundll32"));
    const auto object = windows();
    expectResult(object.get(), L"GstAffichage", {short{2}}, {});
    expectResult(object.get(), L"GstFichierAssociation", {L"C:\\été b.txt"}, {});
    expectResult(object.get(), L"AssistantNouvelleConnexion", {}, {});
    expectResult(object.get(), L"Extinction_Ordinateur", {short{2}}, {});
    EXPECT_EQ(recorder.take(4),
              (std::vector<std::string>{"RUNDLL32 SHELL32.DLL,Control_RunDLL DESK.CPL,,2 (show 2)",
                                        "rundll32.exe rnaui.dll, RnaWizard (show 2)",
                                        "rundll32.exe shell32.dll,OpenAs_RunDLL C:\\été b.txt (show 2)",
                                        "rundll32.exe user.exe,exitwindows (show 2)"}));
    const auto started =
        invoke(object.get(), L"LancerActiverApplication", {L"aucune fenêtre", L"rundll32 x"});
    EXPECT_EQ(started.result, short{1});
    EXPECT_EQ(recorder.take(1), (std::vector<std::string>{"rundll32 x (show 1)"}));
}

TEST(Launchers, OpenDocumentsByTheirProgram) {
    const Recorder recorder;
    ASSERT_TRUE(recorder.standsFor(L"rundll32"));
    const auto program = (std::filesystem::current_path() / "rundll32.exe").wstring();
    HKEY key = nullptr;
    for (const auto& [name, value] :
         {std::pair(std::wstring(L".tov"), std::wstring(L"tovfile")),
          std::pair(std::wstring(L"tovfile\\shell\\open\\command"), L'"' + program + L"\" \"%1\"")}) {
        ASSERT_EQ(RegCreateKeyW(HKEY_CLASSES_ROOT, name.c_str(), &key), 0);
        RegSetValueExW(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                       static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
        RegCloseKey(key);
    }
    std::filesystem::create_directories(L"C:\\client");
    for (const auto* name : {L"C:\\client\\été.tov", L"C:\\client\\a.inconnu"})
        std::ofstream(std::filesystem::path(name)) << "x";
    const auto object = windows();
    expectResult(object.get(), L"TrouveExecutable", {L"C:\\client\\été.tov"}, program.c_str());
    expectResult(object.get(), L"TrouveExecutable", {L"C:\\client\\a.inconnu"}, L"");
    expectResult(object.get(), L"ExecuteFichier", {L"C:\\client\\a.inconnu"}, L"no association");
    expectResult(object.get(), L"ExecuteFichier", {L"C:\\client\\aucun.tov"}, L"Fichier non trouvé");
    expectResult(object.get(), L"ExecuteFichier", {L"C:\\client\\été.tov"},
                 (program + L" C:\\client\\été.tov").c_str());
    EXPECT_EQ(recorder.take(1).size(), 1U);
}

/// What the shell finds in a link file: its target and its arguments.
std::pair<std::wstring, std::wstring> readByTheShell(const std::wstring& path) {
    void* made = nullptr;
    EXPECT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &made), S_OK);
    Pointer<IShellLinkW> link;
    *link.out() = static_cast<IShellLinkW*>(made);
    Pointer<IPersistFile> file;
    link->QueryInterface(IID_IPersistFile, file.outAny());
    EXPECT_EQ(file->Load(path.c_str(), STGM_READ), S_OK);
    std::array<wchar_t, MAX_PATH> target{}, arguments{};
    link->GetPath(target.data(), MAX_PATH, nullptr, 0);
    link->GetArguments(arguments.data(), MAX_PATH);
    return {target.data(), arguments.data()};
}

TEST(Shortcuts, AreReadBackByTheShell) {
    const Recorder keepsTheCurrentFolder;
    std::filesystem::create_directories(L"C:\\client");
    expectResult(windows().get(), L"CreationRaccourci",
                 {L"Éditeur", L"C:\\windows\\notepad.exe", L"/p \"a b\"", L"C:\\client"}, {});
    EXPECT_EQ(readByTheShell(L"C:\\client\\Éditeur.lnk"),
              std::pair(std::wstring(L"C:\\windows\\notepad.exe"), std::wstring(L"/p \"a b\"")));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(Component::loaded().file()).parent_path() /
                                         L"Éditeur.lnk"));
}

/// The file that the Linux home writes: its tests hold that it does.
TEST(Shortcuts, OfTheOtherHomeAreReadByTheShell) {
    EXPECT_EQ(
        readByTheShell(std::filesystem::path(TOVERA_ROOT "/tests/fixtures/lien.lnk").wstring()),
        std::pair(std::wstring(L"C:\\windows\\notepad.exe"), std::wstring(L"/p \"\u00E9t\u00E9 \u0416\"")));
}

int ticks = 0;

void CALLBACK countTick(HWND, UINT, UINT_PTR, DWORD) {
    ++ticks;
}

TEST(Waiting, ServesTheThreadAndKeepsTheEndOfTheHost) {
    ticks = 0;
    const auto timer = SetTimer(nullptr, 0, 50, countTick);
    const auto processorTime = [] {
        FILETIME made{}, ended{}, kernel{}, user{};
        GetThreadTimes(GetCurrentThread(), &made, &ended, &kernel, &user);
        return (kernel.dwLowDateTime + user.dwLowDateTime) / 10000;
    };
    const auto timeOf = [&](int seconds) {
        const auto before = GetTickCount();
        expectResult(windows().get(), L"Wait", {seconds}, {});
        return GetTickCount() - before;
    };
    const auto waited = timeOf(1);
    EXPECT_GE(waited, 990U);
    EXPECT_GE(ticks, 2);
    EXPECT_LT(timeOf(0), waited);
    EXPECT_LT(timeOf(-5), waited);
    KillTimer(nullptr, timer);
    PostQuitMessage(7);
    const auto before = processorTime();
    EXPECT_GE(timeOf(1), 990U);
    EXPECT_LT(processorTime() - before, 300U) << "milliseconds: the host's end must not keep the wait awake";
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(std::pair(message.message, message.wParam), std::pair(UINT{WM_QUIT}, WPARAM{7}));
}

TEST(Folders, OfTheSystem) {
    const auto object = windows();
    expectResult(object.get(), L"GET_DossierSpecial", {36}, L"C:\\windows\\");
    expectResult(object.get(), L"GET_DossierSpecial", {9999}, L"");
    const auto startup = invoke(object.get(), L"GET_DossierSpecial", {7}).result.text();
    EXPECT_TRUE(std::filesystem::is_directory(startup));
    expectResult(object.get(), L"getWindowsVersion", {}, L"");
}

// The tests below need a screen.

TEST(OnScreen, WindowsByTitleAndTheirParents) {
    const auto object = windows();
    const auto window = [](const wchar_t* title, HWND parent) {
        return CreateWindowExW(0, L"STATIC", title, WS_POPUP | WS_CAPTION | WS_VISIBLE, 50, 50, 200, 100,
                               parent, nullptr, nullptr, nullptr);
    };
    const HWND owner = window(L"Propriétaire", nullptr);
    ASSERT_TRUE(owner);
    const HWND owned = window(L"10 signes.", owner);
    const auto number = [](HWND handle) { return static_cast<int>(reinterpret_cast<intptr_t>(handle)); };
    expectResult(object.get(), L"Get_WindowTitle", {number(owned)}, L"10 signes.");
    expectResult(object.get(), L"Get_WindowTitle", {number(owner)}, L"Propriétaire");
    expectResult(object.get(), L"LancerActiverApplication", {L"10 signes.", L"C:\\aucun.exe"}, short{1});
    EXPECT_EQ(GetActiveWindow(), owned);
    SetForegroundWindow(owned);
    expectResult(object.get(), L"Get_ActiveWindow", {Value::truth(false)}, number(owned));
    expectResult(object.get(), L"Get_ActiveWindow", {Value::truth(true)}, number(owner));
    expectResult(object.get(), L"GetActiveWindowTitle", {Value::truth(true)}, L"Propriétaire");
    DestroyWindow(owner);
}

TEST(OnScreen, TheTaskbar) {
    const HWND taskbar = FindWindowW(L"Shell_TrayWnd", L"");
    if (!taskbar) GTEST_SKIP() << "no taskbar here";
    const auto object = windows();
    const bool before = IsWindowVisible(taskbar);
    expectResult(object.get(), L"Cacher_BarreDesTaches", {}, {});
    EXPECT_FALSE(IsWindowVisible(taskbar));
    expectResult(object.get(), L"Montrer_BarreDesTaches", {}, {});
    EXPECT_TRUE(IsWindowVisible(taskbar));
    if (!before) ShowWindow(taskbar, SW_HIDE);
}

/// Answers the dialog on the screen from within its own message loop.
template <int button>
void CALLBACK press(HWND, UINT, UINT_PTR, DWORD) {
    if (const HWND dialog = FindWindowW(L"#32770", nullptr)) PostMessageW(dialog, WM_COMMAND, button, 0);
}

TEST(OnScreen, FoldersAreChosenAndFilesBinned) {
    const auto object = windows();
    Form form(Form::Members{{L"hwnd", L"0"}});
    auto timer = SetTimer(nullptr, 0, 200, press<IDCANCEL>);
    expectResult(object.get(), L"ParcourirDossier", {Value::object(form.dispatch()), L"Où ?"}, L"");
    KillTimer(nullptr, timer);
    std::filesystem::create_directories(L"C:\\client");
    std::ofstream(L"C:\\client\\perdu.txt") << "x";
    timer = SetTimer(nullptr, 0, 200, press<IDYES>);
    expectResult(object.get(), L"Effacer_FichierDossier", {L"C:\\client\\perdu.txt"}, {});
    KillTimer(nullptr, timer);
    EXPECT_FALSE(std::filesystem::exists(L"C:\\client\\perdu.txt"));
}

}  // namespace
}  // namespace tovera::client
