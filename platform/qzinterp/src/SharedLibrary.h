#pragma once

#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>

#ifdef _WIN32
#    include <windows.h>
#else
#    include <dlfcn.h>
#endif

/// A library that is opened while the program runs, and stays open.
class SharedLibrary {
public:
    /// `forAll` makes what it exports known to libraries that are opened later.
    explicit SharedLibrary(std::filesystem::path const& path, [[maybe_unused]] bool forAll = false) {
#ifdef _WIN32
        m_handle = LoadLibraryW(path.c_str());
        if (m_handle == nullptr)
            m_failure = path.string() + " cannot be opened";
#else
        m_handle = dlopen(path.c_str(), RTLD_NOW | (forAll ? RTLD_GLOBAL : RTLD_LOCAL));
        if (m_handle == nullptr)
            m_failure = dlerror();
#endif
    }

    bool IsOpen() const { return m_handle != nullptr; }
    std::string const& GetFailure() const { return m_failure; }

    /// Null when it exports no such function.
    template <class Function>
    Function* Find(char const* name) const {
#ifdef _WIN32
        return reinterpret_cast<Function*>(GetProcAddress(m_handle, name));
#else
        return reinterpret_cast<Function*>(dlsym(m_handle, name));
#endif
    }

    static std::filesystem::path GetFileName(std::string const& name) {
#ifdef _WIN32
        return "lib" + name + ".dll";
#else
        return "lib" + name + ".so";
#endif
    }

    /// The folder of the library that holds a function.
    template <class Function>
    static std::filesystem::path GetFolderOf(Function* function) {
#ifdef _WIN32
        HMODULE module = nullptr;
        wchar_t path[32768] = L"";
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(function), &module);
        GetModuleFileNameW(module, path, static_cast<DWORD>(std::size(path)));
        return std::filesystem::path(path).parent_path();
#else
        Dl_info info{};
        if (dladdr(reinterpret_cast<void*>(function), &info) == 0 || info.dli_fname == nullptr)
            return {};
        std::error_code failure;
        std::filesystem::path const path = std::filesystem::canonical(info.dli_fname, failure);
        return failure ? std::filesystem::path() : path.parent_path();
#endif
    }

private:
#ifdef _WIN32
    HMODULE m_handle = nullptr;
#else
    void* m_handle = nullptr;
#endif
    std::string m_failure;
};
