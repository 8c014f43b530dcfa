# A room is a folder of src/ that becomes one static library. The rooms it is given here are the only
# ones whose headers it can include, so the link lines are the law of who may know whom.
#
#   ovrano_room(document ROOMS platform LINK JPEG::JPEG)
#
# The global property OVRANO_ROOMS lists the rooms there are.
function(ovrano_room name)
  cmake_parse_arguments(ROOM "" "" "ROOMS;LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h *.qrc)
  add_library(ovrano_${name} STATIC ${sources})
  # Headers are included as "room/file.h"; each room exposes its own folder alone.
  set(exposed ${CMAKE_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${exposed})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${exposed}/${name} SYMBOLIC)
  target_include_directories(ovrano_${name} PUBLIC ${exposed})
  list(TRANSFORM ROOM_ROOMS PREPEND ovrano_)
  target_link_libraries(ovrano_${name} PUBLIC ${ROOM_ROOMS} ${ROOM_LINK} PRIVATE ovrano_options)
  target_precompile_headers(ovrano_${name} REUSE_FROM ovrano_common_headers)
  set_property(GLOBAL APPEND PROPERTY OVRANO_ROOMS ${name})
endfunction()
