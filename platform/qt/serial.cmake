# The serial port, on Qt SerialPort.
target_sources(qtplatform PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/serial_line.cpp
    ${CMAKE_CURRENT_LIST_DIR}/serial_port_adapter.cpp)
target_link_libraries(qtplatform PRIVATE Qt6::SerialPort)
