# What the hardening guides of the distributions advise, for every program of ours: position independent code, read-only
# relocations bound at start, guards on the stack, checked library calls and array accesses, control-flow protection, and
# variables that never hold what lay in memory before. Sanitizers bring checks of their own and exclude some of these.

set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(OUTPUT_VARIABLE pie_output LANGUAGES CXX)
if(NOT CMAKE_CXX_LINK_PIE_SUPPORTED)
  message(WARNING "Programs will not be position independent: ${pie_output}")
endif()

include(CheckCXXCompilerFlag)
add_library(hourwright_hardening INTERFACE)
if(NOT HOURWRIGHT_SANITIZE)
  target_compile_options(hourwright_hardening INTERFACE
    -fstack-protector-strong -fstack-clash-protection -ftrivial-auto-var-init=zero -Wformat -Wformat-security
    -U_FORTIFY_SOURCE $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=3> -D_GLIBCXX_ASSERTIONS)
  # x86 has -fcf-protection, ARM -mbranch-protection; no compiler knows both.
  foreach(flag IN ITEMS -fcf-protection=full -mbranch-protection=standard)
    string(MAKE_C_IDENTIFIER "HAS${flag}" known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
      target_compile_options(hourwright_hardening INTERFACE ${flag})
    endif()
  endforeach()
endif()
target_link_options(hourwright_hardening INTERFACE -Wl,-z,relro,-z,now -Wl,-z,noexecstack -Wl,-z,separate-code)
