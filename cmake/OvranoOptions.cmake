# What every target of the project is compiled with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

option(OVRANO_SANITIZE "Compile with the address and undefined-behaviour sanitizers" OFF)

add_library(ovrano_options INTERFACE)
target_compile_options(ovrano_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
  -Woverloaded-virtual -Wdouble-promotion -Werror -fno-math-errno)
target_compile_definitions(ovrano_options INTERFACE
  QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# What Debian hardens its packages with: what a damaged picture could do to the program is made harder to use.
# The checks of library calls need an optimising build.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT OVRANO_SANITIZE)
  target_compile_options(ovrano_options INTERFACE
    -fstack-protector-strong -Wformat -Werror=format-security $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  target_link_options(ovrano_options INTERFACE -Wl,-z,relro,-z,now)
endif()

if(OVRANO_SANITIZE)
  target_compile_options(ovrano_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ovrano_options INTERFACE -fsanitize=address,undefined)
endif()
