# How a released program is made hard to misuse. tools/check-package looks for each of these in the
# packed programs.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
add_compile_options("$<$<CONFIG:Release>:-fstack-protector-strong;-fstack-clash-protection>")
add_compile_options("$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
check_cxx_compiler_flag(-fcf-protection=full ZPS_HAS_CF_PROTECTION)  # x86 alone
if(ZPS_HAS_CF_PROTECTION)
    add_compile_options("$<$<CONFIG:Release>:-fcf-protection=full>")
endif()
add_link_options("$<$<CONFIG:Release>:LINKER:-z,relro,-z,now,-z,noexecstack>")
# A program is the same whatever folder it was built in.
add_compile_options("$<$<CONFIG:Release>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>")
