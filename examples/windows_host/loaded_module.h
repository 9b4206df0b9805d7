// The module without its import library: loaded when it is needed, and unloaded again.
#pragma once

#include <tradebill/report_request.h>
#include <windows.h>

/// Unloads the module at its end. No function of it may be called after that, nor while it isn't loaded.
class CLoadedModule {
public:
    explicit CLoadedModule(const char* path) : module_(::LoadLibraryA(path)) {
        Find(generateBill, "GenerateBill");
        Find(tryGenerateBill, "TryGenerateBill");
        Find(setRootFolder, "SetRootFolder");
    }
    CLoadedModule(const CLoadedModule&) = delete;
    CLoadedModule& operator=(const CLoadedModule&) = delete;
    ~CLoadedModule() {
        if (module_ != nullptr) ::FreeLibrary(module_);
    }

    [[nodiscard]] bool IsUsable() const { return generateBill && tryGenerateBill && setRootFolder; }

    decltype(&GenerateBill) generateBill = nullptr;
    decltype(&TryGenerateBill) tryGenerateBill = nullptr;
    decltype(&SetRootFolder) setRootFolder = nullptr;

private:
    template <class Function>
    void Find(Function& function, const char* name) {
        if (module_ == nullptr) return;
        function = reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module_, name)));
    }

    HMODULE module_;
};
