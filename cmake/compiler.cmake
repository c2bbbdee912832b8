# How every file of ours is compiled and linked: targets link varnel_compiler; cli_static is the
# link option that makes the command line program static in a release.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

find_package(Threads REQUIRED)
add_library(varnel_compiler INTERFACE)
target_link_libraries(varnel_compiler INTERFACE Threads::Threads)

# Restricted to C++, because options and definitions also reach the resource compiler.
set(cxx_options
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
    -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    -fstack-protector-strong)

if(WIN32)
  enable_language(RC)
  list(APPEND cxx_options -ffunction-sections -fdata-sections)
  target_link_options(varnel_compiler INTERFACE
    -static
    -fstack-protector-strong  # its run-time part
    -Wl,--dynamicbase,--nxcompat,--high-entropy-va
    -Wl,--gc-sections
    -Wl,--no-insert-timestamp  # the same sources give the same bytes
    $<$<CONFIG:Release>:-s>)
  target_link_libraries(varnel_compiler INTERFACE
    comctl32 comdlg32 shell32 ole32 uuid gdi32 user32 advapi32 uxtheme shlwapi version)
else()
  # Fortified calls exist only in optimised code; some systems define the macro themselves.
  list(APPEND cxx_options
    -fPIE "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
  target_link_options(varnel_compiler INTERFACE -Wl,-z,relro,-z,now)

  # A static program starts faster and runs on every distribution.
  include(CheckCXXSourceCompiles)
  foreach(mode static-pie static)
    set(CMAKE_REQUIRED_FLAGS -fPIE)
    set(CMAKE_REQUIRED_LINK_OPTIONS -${mode})
    string(MAKE_C_IDENTIFIER "VARNEL_LINKS_${mode}" works)
    check_cxx_source_compiles(
      "#include <thread>\nint main() { std::thread([] {}).join(); }" ${works})
    if(${works})
      set(cli_static -${mode})
      break()
    endif()
  endforeach()
  unset(CMAKE_REQUIRED_FLAGS)
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
endif()

target_compile_options(varnel_compiler INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:${cxx_options}>")
