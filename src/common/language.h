#pragma once

#include <string_view>

/// The sentences that the logic shows. What a window says itself stands there, in tr(); captions
/// stand in the row of their table, which the window translates.
namespace mLanguageGobals {

inline constexpr std::string_view kFile = "File";

// Units of size.
inline constexpr std::string_view kBytes = "bytes";
inline constexpr std::string_view kKB = "KB";
inline constexpr std::string_view kMB = "MB";
inline constexpr std::string_view kGB = "GB";

// Why a path can't be reached.
inline constexpr std::string_view kDriveNotPresent = "The drive is not present.";
inline constexpr std::string_view kNoDisk = "No disk in the drive.";
inline constexpr std::string_view kFileNotFound = "The specified file was not found.";
inline constexpr std::string_view kFolderNotFound = "The specified folder was not found.";

// The command line.
inline constexpr std::string_view kUsage =
    "Usage: quorvane [--help] [--version] [FOLDER]\n"
    "Renames many files in one go.\n"
    "\n"
    "  FOLDER      where to look for files; of a file, the folder that it is in\n"
    "  --help      shows this text\n"
    "  --version   shows which version this is\n";
inline constexpr std::string_view kUnknownOption = "unknown option: ";
inline constexpr std::string_view kOneFolderOnly = "only one folder can be opened";

// Start and About box.
inline constexpr std::string_view kOtherSystem =
    "Quorvane supports only Windows 2000/XP/2003/Vista";
inline constexpr std::string_view kWebsite = "Website:";
inline constexpr std::string_view kTechnicalSupport = "Technical support:";

// The error window; kSendFile goes on with the address of the support.
inline constexpr std::string_view kProgramError = "Program Error";
inline constexpr std::string_view kErrorOccurred =
    "Sorry, an error has occurred. Try to restart the program.";
inline constexpr std::string_view kIfErrorOccursAgain =
    "If the error occurs again, please send a message with an attached ErrorReport.txt file by "
    "following these directions:";
inline constexpr std::string_view kOr = "OR";
inline constexpr std::string_view kGoToFolder = "1) Go to the folder (click to open folder):";
inline constexpr std::string_view kLocateFile = "2) Locate the ErrorReport.txt file in this folder";
inline constexpr std::string_view kRightClickFile =
    "3) Right-click on the file and choose \"Send To...\" and \"Mail Recipient\"";
inline constexpr const char* kSendFile = "4) Send the file to ";
inline constexpr std::string_view kClickLink =
    "1) Click the link below and your default email client will create a message";
inline constexpr std::string_view kAttachFileSecond =
    "2) Attach the ErrorReport.txt file located in the folder (click to open folder):";
inline constexpr std::string_view kSendMail = "3) Send the mail";
inline constexpr std::string_view kOpenClient = "1) Open your email client";
inline constexpr std::string_view kCreateDocument = "2) Create a new email document";
inline constexpr std::string_view kAttachFileThird =
    "3) Attach the ErrorReport.txt file located in the folder (click to open folder):";

// What the user gave amiss, where only an error could tell; each is put together with what is
// named.
inline constexpr std::string_view kTheMask = "The mask";
inline constexpr std::string_view kTheIncludeMask = "The include mask";
inline constexpr std::string_view kTheExcludeMask = "The exclude mask";
inline constexpr std::string_view kBracketNotClosed = " has a bracket that isn't closed.";
inline constexpr std::string_view kCounterFrom = "The counter that starts at ";
inline constexpr std::string_view kPasses = " passes ";
inline constexpr std::string_view kStartLower = "; start it lower.";
inline constexpr std::string_view kSumTooLarge =
    ", N and K are too large together; make one of them smaller.";
inline constexpr std::string_view kNameTooLongHere =
    ", “Replace” makes a name longer than 32767 characters; put in a shorter text.";

// Why a file failed.
inline constexpr std::string_view kGone = "The file or its folder no longer exists.";
inline constexpr std::string_view kNoPermission = "You don't have permission to do this.";
inline constexpr std::string_view kBadName = "The disk doesn't accept this file name.";
inline constexpr std::string_view kInUse = "The file is in use.";
inline constexpr std::string_view kTooManyOpen = "Too many files are open.";
inline constexpr std::string_view kSilent = "The disk isn't responding.";
inline constexpr std::string_view kFolderWasReplaced = "The folder was replaced by another.";
inline constexpr std::string_view kFileWasChanged = "The file was changed in the meantime.";
inline constexpr std::string_view kNewNameEmpty = "The new name is empty.";
inline constexpr std::string_view kNewNameForbidden = "The new name has a forbidden character.";
inline constexpr std::string_view kOutputNotFull = "The output folder isn't a full path.";
inline constexpr std::string_view kRenamedSomehow = "It isn't known how this file was renamed.";
inline constexpr std::string_view kWouldBlockUndo = "A new folder here would block Undo.";
inline constexpr std::string_view kOriginalIsGone = "The original file no longer exists.";
inline constexpr std::string_view kCopyWasChanged = "The copy was changed or replaced.";
inline constexpr std::string_view kNoReasonGiven = "The system gave no reason.";
inline constexpr std::string_view kNameTaken = "The name is already taken.";
inline constexpr std::string_view kFileInsteadOfFolder =
    "There is a file where a folder should be.";
inline constexpr std::string_view kNameTooLong = "The name is too long.";
inline constexpr std::string_view kReadOnly = "The disk is read-only.";
inline constexpr std::string_view kDiskFull = "The disk is full.";
inline constexpr std::string_view kShareUsedUp = "You have used up your share of the disk.";
inline constexpr std::string_view kTooLargeForDisk = "The file is too large for this disk.";
inline constexpr std::string_view kDiskError = "The disk reported an error.";
inline constexpr std::string_view kFolderInWay = "A folder is in the way.";
inline constexpr std::string_view kFolderNotEmpty = "The folder isn't empty.";
inline constexpr std::string_view kOtherDisk = "This file can't be moved to another disk.";
inline constexpr std::string_view kKindNotCopied = "This kind of file can't be copied.";
inline constexpr std::string_view kNotSupported = "The disk doesn't support this.";
inline constexpr std::string_view kTooManyLinks = "The file has too many links.";
inline constexpr std::string_view kLinksInCircle = "The links in the path lead in a circle.";
inline constexpr std::string_view kNoMemory = "There isn't enough memory.";
inline constexpr std::string_view kDiskRemoved = "The disk was removed.";
inline constexpr std::string_view kFileLost = "The disk has lost track of the file.";
inline constexpr std::string_view kCancelled = "The operation was cancelled.";
inline constexpr std::string_view kSystemSays = "The system says: ";

// What the desktop refuses.
inline constexpr std::string_view kNoResources =
    "The operating system is out of memory or resources.";
inline constexpr std::string_view kPathNotFound = "The specified path was not found.";
inline constexpr std::string_view kAccessDenied =
    "The operating system denied access to the specified file.";
inline constexpr std::string_view kNotEnoughMemory =
    "There was not enough memory to complete the operation.";
inline constexpr std::string_view kBadProgram =
    "The .exe file is invalid (non-Win32 .exe or error in .exe image).";
inline constexpr std::string_view kSharingViolation = "A sharing violation occurred.";
inline constexpr std::string_view kBadAssociation =
    "The file name association is incomplete or invalid.";
inline constexpr std::string_view kNoAssociation =
    "There is no application associated with the given file name extension. This error will "
    "also be returned if you attempt to print a file that is not printable.";

// Typed names.
inline constexpr std::string_view kBadNameChars =
    "A filename cannot contain any of the following characters:\n"
    "\\ / : * ? \" < > |";

// Check boxes.
inline constexpr std::string_view kMaskEmpty = "The mask field is empty.";

// Why the list has no rows: a line and a note.
inline constexpr std::string_view kNoneListed = "No files listed";
inline constexpr std::string_view kChooseAndList =
    "Choose a source folder, then press “Prepare file list”.";
inline constexpr std::string_view kListing = "Listing…";
inline constexpr std::string_view kNotComplete = "List not complete";
inline constexpr std::string_view kListAgain = "Press “Prepare file list” to start again.";
inline constexpr std::string_view kBracketOpen = "A “[” in a mask has no “]”.";
inline constexpr std::string_view kNoneFound = "No files found";
inline constexpr std::string_view kFolderUnreadable = "The folder can't be read.";
inline constexpr std::string_view kNoClosingSeparator = "The source folder does not end in “/”.";
inline constexpr std::string_view kAddSeparator = "Add “/” and list";
inline constexpr std::string_view kNoFileHere = "There is no file in this folder.";
inline constexpr std::string_view kOnlyInSubfolders =
    "There is no file in this folder itself.\n"
    "Tick “Include subfolders” to look into its subfolders.";
inline constexpr std::string_view kSubfoldersUnreadable =
    "There is no file in this folder, but some subfolders can't be read.";
inline constexpr std::string_view kMasksNotParted =
    "No file in this folder matches the masks.\n"
    "Blanks part masks, as in *.jpg *.png.";
inline constexpr std::string_view kNoMatch = "No file in this folder matches the masks.";

// Of a heading above names that are not made yet.
inline constexpr std::string_view kDraft = " (draft)";

// What is wrong with a new name before anything is done.
inline constexpr std::string_view kEmptyWillFail = "empty name: will fail";
inline constexpr std::string_view kTooLongBy = "too long: ";
inline constexpr std::string_view kOnlyExtension = "only an extension";
inline constexpr std::string_view kSeparatorWillFail = "holds a separator: will fail";
inline constexpr std::string_view kTakenWillFail = "taken: will fail";
inline constexpr std::string_view kTakenGetsNumber = "taken: will get a number";

// The commands and the status bar.
inline constexpr std::string_view kPreviewing = "Preview ";
inline constexpr std::string_view kRenaming = "Renaming ";
inline constexpr std::string_view kTotalOfNone = "Total 0 files";
inline constexpr std::string_view kSelectOutputFolder = "Please select output folder";
inline constexpr std::string_view kOutputMustBeFull =
    "The output folder must be a full path, as in /home/me/pictures/.";
inline constexpr std::string_view kRunNotCompleted =
    "Process is not completed.\nSome of the files have been renamed.";
inline constexpr std::string_view kUndoFailedFor = "Undo failed for ";
inline constexpr const char* kFiles = " file(s)";
inline constexpr std::string_view kOf = " of ";
inline constexpr std::string_view kNewName = "new name";
inline constexpr std::string_view kNewNames = "new names";
inline constexpr std::string_view kEmpty = "empty";
inline constexpr std::string_view kTooLong = "too long";
inline constexpr std::string_view kTaken = "taken";
inline constexpr std::string_view kWithSeparator = "with a separator";
inline constexpr std::string_view kFileTicked = " file ticked";
inline constexpr std::string_view kFilesTicked = " files ticked";
inline constexpr std::string_view kUndone = "undone";
inline constexpr std::string_view kFailed = "failed";
inline constexpr std::string_view kNumbered = "numbered";
inline constexpr std::string_view kUndoNotCompleted =
    "Process is not completed.\nSome of the files are still renamed.";

// What was left of runs that could not be undone in their time; put together with numbers, dates
// and what the output mode says of done files.
inline constexpr std::string_view kRunCutOff = "A run was cut off";
inline constexpr std::string_view kRunNotComplete = "A run was not completed";
inline constexpr std::string_view kUndoCutOff = "An undo was cut off";
inline constexpr std::string_view kRunStillThere = "An earlier run can still be taken back";
inline constexpr std::string_view kNotAllBack = "Some files are not back yet";
inline constexpr std::string_view kAllBack = "All files are back";
inline constexpr std::string_view kEndedBeforeAllWere = "Quorvane was ended before all files were ";
inline constexpr std::string_view kEndedWithPart =
    "Quorvane was ended with only a part of the files ";
inline constexpr std::string_view kEndedAfterRun =
    "Quorvane was ended unexpectedly after a run. What that did can still be taken back.";
inline constexpr std::string_view kPutBackWord = "put back";
inline constexpr std::string_view kNotAllPutBack = "Not all files have been put back so far.";
inline constexpr std::string_view kRunBeganOn = " The run began on ";
inline constexpr std::string_view kAt = " at ";
inline constexpr std::string_view kOneFile = " file";
inline constexpr std::string_view kManyFiles = " files";
inline constexpr std::string_view kWas = " was ";
inline constexpr std::string_view kWere = " were ";
inline constexpr std::string_view kIsStill = " is still ";
inline constexpr std::string_view kAreStill = " are still ";
inline constexpr std::string_view kBackGivesNames =
    " “Put back” gives them their former names back.";
inline constexpr std::string_view kBackMoves =
    " “Put back” brings them back to their former folders and names.";
inline constexpr std::string_view kBackDeletesCopies =
    " “Put back” deletes the copies, but none that was changed; the originals stay.";
inline constexpr std::string_view kBackDoesBoth =
    " “Put back” brings the files back to their former folders and names, and deletes the copies, "
    "but none that was changed.";
inline constexpr std::string_view kNotAllWritten =
    " Not all that the run did could be written down, so other files may be renamed too.";
inline constexpr std::string_view kFilesAreBack = " files are back.";
inline constexpr std::string_view kFileIsBack = " file is back.";
inline constexpr std::string_view kCopiesAreDeleted = " copies are deleted.";
inline constexpr std::string_view kCopyIsDeleted = " copy is deleted.";
inline constexpr std::string_view kPutBackGoesOn = " “Put back” goes on with the others.";
inline constexpr std::string_view kListTellsWhy =
    " The list tells why the others are not. Once nothing is in their way, try again.";
inline constexpr std::string_view kKeepForGood =
    "The files stay as they are now and can't be put back any more.\nKeep them so?";
inline constexpr std::string_view kWillBeToldAgain =
    "What is known of this run can't be deleted, so it will be told again at the next start.";
inline constexpr std::string_view kNoUndoAfterCrash = "Undo after a crash isn't possible: ";

}  // namespace mLanguageGobals
