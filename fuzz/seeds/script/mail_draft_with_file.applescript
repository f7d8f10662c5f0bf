set attachmentFile to POSIX file "/documents/menu \"été\".pdf" as alias
set messageBody to "Bonjour \"Alix\"" & return & "" & return & "C:\\menu, à bientôt"
tell application "Mail"
    set draftMessage to make new outgoing message with properties {visible:true, subject:"Menu \"été\" \\ 1", content:messageBody}
    tell draftMessage
        make new to recipient at end of to recipients with properties {address:"Alix@example.org"}
            tell content
        make new attachment with properties {file name:attachmentFile} at after last paragraph
    end tell
    end tell
    activate
end tell