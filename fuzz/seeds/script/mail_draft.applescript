
set messageBody to "Bonjour \"Alix\"" & return & "" & return & "C:\\menu, à bientôt"
tell application "Mail"
    set draftMessage to make new outgoing message with properties {visible:true, subject:"Menu \"été\" \\ 1", content:messageBody}
    tell draftMessage
        make new to recipient at end of to recipients with properties {address:"Alix@example.org"}
        
    end tell
    activate
end tell