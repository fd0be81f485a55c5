# The service that the account and the usage counts talk to. A build that nobody configured talks to
# no one: names under ".invalid" exist nowhere, and the program never looks one up.

set(BRINMOOR_SERVICE_URL "https://service.brinmoor.invalid/" CACHE STRING
    "The service base URL, https")
set(BRINMOOR_OWNER_ADDRESS "owner@brinmoor.invalid" CACHE STRING
    "The e-mail address of the one account that may read the usage report")
set(BRINMOOR_SERVICE_CERTIFICATE "" CACHE FILEPATH
    "A certificate (PEM) to trust beside the system's, for a service on this computer")

if(NOT BRINMOOR_SERVICE_URL MATCHES "^https://[^/]+/")
    message(FATAL_ERROR "BRINMOOR_SERVICE_URL must be https and end in a path: ${BRINMOOR_SERVICE_URL}")
endif()

# Linked by whatever puts the program together; nothing else knows these.
add_library(brinmoor_service_settings INTERFACE)
target_compile_definitions(brinmoor_service_settings INTERFACE
    BRINMOOR_SERVICE_URL="${BRINMOOR_SERVICE_URL}"
    BRINMOOR_OWNER_ADDRESS="${BRINMOOR_OWNER_ADDRESS}"
    BRINMOOR_SERVICE_CERTIFICATE="${BRINMOOR_SERVICE_CERTIFICATE}")
