# What every target of the project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

# Flags that only some compilers know are options, which are on where they are known.
set(is_gcc_or_clang OFF)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  set(is_gcc_or_clang ON)
endif()
set(can_harden OFF)
if(is_gcc_or_clang AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(can_harden ON)
endif()
option(OVRANO_WARNINGS "Ask for the warnings that the project is free of" ${is_gcc_or_clang})
option(OVRANO_WERROR "Take them as errors, as developers and continuous integration do" OFF)
option(OVRANO_STRICT_FLOATS "Round each operation by itself on every processor" ${is_gcc_or_clang})
option(OVRANO_HARDEN "Harden the program as Debian hardens its packages" ${can_harden})
option(OVRANO_SANITIZE "Compile with the address and undefined-behaviour sanitizers" OFF)

add_library(ovrano_options INTERFACE)
target_compile_definitions(ovrano_options INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
if(OVRANO_WARNINGS)
  target_compile_options(ovrano_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wdouble-promotion)
endif()
if(OVRANO_WERROR)
  target_compile_options(ovrano_options INTERFACE -Werror)
endif()
# A multiplication and an addition that are merged round once instead of twice: turned and extruded text would
# differ from one kind of processor to the next. That mathematical functions set errno keeps them from being inlined.
if(OVRANO_STRICT_FLOATS)
  target_compile_options(ovrano_options INTERFACE -ffp-contract=off -fno-math-errno)
endif()

# What a damaged picture could do to the program is made harder to use. The checks of library calls need an
# optimising build. That a format string from outside is an error is part of it, also for users.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
if(is_gcc_or_clang)
  # Programs are compiled as libraries are: then the same precompiled headers fit both.
  target_compile_options(ovrano_options INTERFACE -fPIC)
endif()
if(OVRANO_HARDEN AND NOT OVRANO_SANITIZE)
  target_compile_options(ovrano_options INTERFACE
    -fstack-protector-strong -Wformat -Werror=format-security $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  target_link_options(ovrano_options INTERFACE -Wl,-z,relro,-z,now)
endif()

if(OVRANO_SANITIZE)
  target_compile_options(ovrano_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ovrano_options INTERFACE -fsanitize=address,undefined)
endif()
